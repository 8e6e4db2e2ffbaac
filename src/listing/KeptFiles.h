#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "listing/PhotoHistory.h"

/// What was taken out of a listing and may come back waits in the sub-folder "Undo" of the working folder:
/// photos as N, "-", the photo's id, ".jpg", and all files of a listing that was removed, under their own
/// names. Its state goes first and comes back last, so a listing is where its state is; its journal goes last
/// and comes back first, so it tells a removal that was interrupted.
namespace lumarin::kept_files {

std::string Folder(const std::string& folder);
std::string PhotoPath(const std::string& folder, std::int32_t listNum, std::uint32_t id);
/// The listing that a file of this name in the sub-folder belongs to; nothing for a file of somebody else.
std::optional<std::int32_t> ListingOf(const std::string& name);

/// Nothing when the file is not there.
std::optional<PhotoHistory::Fingerprint> FingerprintOf(const std::string& path);

/// Puts away the photos that do not stay where they are between two orders.
void PutAway(const std::string& folder, std::int32_t listNum, const PhotoOrder& from, const PhotoOrder& to);
/// Fetches the photos of an order whose files are not in their places, as far as they wait here.
void Fetch(const std::string& folder, std::int32_t listNum, const PhotoOrder& order);

bool HasPhotos(const std::string& folder, std::int32_t listNum);
/// Deletes what waits of a listing and is not wanted, as far as it can be deleted.
void Sweep(const std::string& folder, std::int32_t listNum,
           const std::function<bool(std::uint32_t id)>& wanted) noexcept;

/// Listings that were removed.
std::vector<std::int32_t> RemovedListings(const std::string& folder);
/// Moves a listing whose journal ends with its removal here. When this throws, nothing was moved; what cannot
/// be moved once its state is here stays for `FinishTaking`.
void TakeListing(const std::string& folder, std::int32_t listNum);
/// Moves the rest of a listing whose move in either direction was interrupted here.
void FinishTaking(const std::string& folder, std::int32_t listNum);
/// Moves it back. When this throws, it is still one that was removed.
void GiveListingBack(const std::string& folder, std::int32_t listNum);

/// Deletes everything that waits of a listing, as far as it can be deleted.
void Delete(const std::string& folder, std::int32_t listNum) noexcept;
/// The same for all listings that are not spared.
void DeleteAll(const std::string& folder, const std::function<bool(std::int32_t listNum)>& spared) noexcept;
/// Moves the photos that wait of a listing out of the reach of its steps.
void SetPhotosAside(const std::string& folder, std::int32_t listNum);

}  // namespace lumarin::kept_files
