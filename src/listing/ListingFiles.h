#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Names of one listing's files: N, a letter, ".jpg" for each photo in display order, N.dat for the state,
/// N.jnl for the journal of the last change, N, a letter, ".tmp" during a move; and each of these with
/// ".part" behind it while it is written. The working folder may hold other files, which belong to somebody
/// else.
namespace lumarin::listing_files {

/// N + letter of the 0-based index + ".jpg". Throws IndexError for an index outside 0 to 25.
std::string PhotoName(std::int32_t listNum, int index);

std::string StateName(std::int32_t listNum);
std::string JournalName(std::int32_t listNum);

/// The listing whose file bears this name; nothing for a file of somebody else.
std::optional<std::int32_t> ListingOf(std::string_view name);

/// Whether a name starts with the listing's number and goes on with anything but a digit.
bool BearsNumber(const std::string& name, std::int32_t listNum);

/// Names in the folder that belong to the listing; with an extension (".jpg") only those.
std::vector<std::string> List(const std::string& folder, std::int32_t listNum,
                              const std::string& extension = {});

/// Deletes all files of the listing, its state and journal first: a listing of which only photos are left
/// is not taken for unsent work.
void DeleteAll(const std::string& folder, std::int32_t listNum);

/// The same as far as it can be done.
void TryDeleteAll(const std::string& folder, std::int32_t listNum) noexcept;

/// Sets files of somebody else that bear the listing's number aside, as far as that can be done.
void SetOthersAside(const std::string& folder, std::int32_t listNum) noexcept;

/// Moves all files of the listing, its state last, out of the way of a fresh load: into the sub-folder "Set
/// aside", or a numbered one in it when files of the listing lie there already.
void SetAside(const std::string& folder, std::int32_t listNum);

/// Moves files of somebody else there whose names are the listing's but for the case of letters: where the
/// file system takes such names for one, the listing's own would overwrite them.
void SetLookalikesAside(const std::string& folder, std::int32_t listNum);

/// The same for one file, whoever it belongs to.
void SetAside(const std::string& folder, const std::string& name);

}  // namespace lumarin::listing_files
