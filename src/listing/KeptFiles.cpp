#include "listing/KeptFiles.h"

#include <set>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "listing/ListingFiles.h"
#include "listing/PhotoJournal.h"
#include "listing/StateBytes.h"

namespace lumarin::kept_files {

namespace {

constexpr std::string_view Ending = ".jpg";

struct KeptPhoto {
    std::int32_t listNum = 0;
    std::uint32_t id = 0;
};

std::string NameOf(const KeptPhoto& photo) {
    return std::to_string(photo.listNum) + "-" + std::to_string(photo.id) + std::string(Ending);
}

std::optional<KeptPhoto> PhotoNamed(const std::string& name) {
    const std::size_t dash = name.find('-');
    if (dash == std::string::npos || !name.ends_with(Ending)) return std::nullopt;
    const auto listNum = ParseListingNumber(name.substr(0, dash));
    const auto id = ParseListingNumber(name.substr(dash + 1, name.size() - dash - 1 - Ending.size()));
    if (!listNum || !id) return std::nullopt;
    const KeptPhoto photo{*listNum, static_cast<std::uint32_t>(*id)};
    return NameOf(photo) == name ? std::optional(photo) : std::nullopt;
}

std::vector<std::string> PhotosOf(const std::string& folder, std::int32_t listNum) {
    return files::List(Folder(folder), [&](const std::string& name) {
        const auto photo = PhotoNamed(name);
        return photo && photo->listNum == listNum;
    });
}

std::string Place(const std::string& folder, std::int32_t listNum, std::size_t index) {
    return folder + listing_files::PhotoName(listNum, static_cast<int>(index));
}

}  // namespace

std::string Folder(const std::string& folder) { return folder + "Undo" + files::Separator; }

std::string PhotoPath(const std::string& folder, std::int32_t listNum, std::uint32_t id) {
    return Folder(folder) + NameOf({listNum, id});
}

std::optional<std::int32_t> ListingOf(const std::string& name) {
    if (const auto photo = PhotoNamed(name)) return photo->listNum;
    return listing_files::ListingOf(name);
}

std::optional<PhotoHistory::Fingerprint> FingerprintOf(const std::string& path) {
    if (!files::FileExists(path)) return std::nullopt;
    const std::string bytes = files::ReadAll(path);
    return PhotoHistory::Fingerprint{static_cast<std::uint32_t>(bytes.size()), CheckOf(bytes)};
}

void PutAway(const std::string& folder, std::int32_t listNum, const PhotoOrder& from, const PhotoOrder& to) {
    files::EnsureFolder(Folder(folder));
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (i < to.size() && to[i].id == from[i].id) continue;
        const std::string place = Place(folder, listNum, i);
        if (files::FileExists(place)) files::Rename(place, PhotoPath(folder, listNum, from[i].id));
    }
}

void Fetch(const std::string& folder, std::int32_t listNum, const PhotoOrder& order) {
    for (std::size_t i = 0; i < order.size(); ++i) {
        const std::string place = Place(folder, listNum, i);
        if (files::FileExists(place)) continue;
        const std::string kept = PhotoPath(folder, listNum, order[i].id);
        if (files::FileExists(kept)) files::Rename(kept, place);
    }
}

bool HasPhotos(const std::string& folder, std::int32_t listNum) { return !PhotosOf(folder, listNum).empty(); }

void Sweep(const std::string& folder, std::int32_t listNum,
           const std::function<bool(std::uint32_t)>& wanted) noexcept {
    try {
        for (const std::string& name : PhotosOf(folder, listNum))
            if (!wanted(PhotoNamed(name)->id)) files::TryDelete(Folder(folder) + name);
    } catch (...) {  // what is left goes with the listing
    }
}

std::vector<std::int32_t> RemovedListings(const std::string& folder) {
    std::vector<std::int32_t> removed;
    files::List(Folder(folder), [&](const std::string& name) {
        const auto listing = listing_files::ListingOf(name);
        if (listing && name == listing_files::StateName(*listing)) removed.push_back(*listing);
        return false;
    });
    return removed;
}

void TakeListing(const std::string& folder, std::int32_t listNum) {
    const std::string state = listing_files::StateName(listNum),
                      journal = listing_files::JournalName(listNum);
    const auto take = [&](const std::string& name) {
        if (files::FileExists(folder + name)) files::Rename(folder + name, Folder(folder) + name);
    };
    files::EnsureFolder(Folder(folder));
    // What is left of an earlier removal that is final by now.
    if (!files::FileExists(Folder(folder) + state)) listing_files::DeleteAll(Folder(folder), listNum);
    take(state);
    try {
        for (const std::string& name : listing_files::List(folder, listNum))
            if (name != journal) take(name);
        take(journal);
    } catch (const Error&) {  // without its state the listing is not there any more
    }
}

void FinishTaking(const std::string& folder, std::int32_t listNum) {
    if (!files::FileExists(Folder(folder) + listing_files::StateName(listNum))) return;
    // Without a journal of the removal it is what an unfinished load has left.
    const auto last = photo_journal::HistoryIn(folder, listNum).NextUndo();
    if (last && last->kind == StepKind::RemoveListing) TakeListing(folder, listNum);
}

void GiveListingBack(const std::string& folder, std::int32_t listNum) {
    const std::string state = listing_files::StateName(listNum),
                      journal = listing_files::JournalName(listNum);
    const auto give = [&](const std::string& name) {
        if (files::FileExists(Folder(folder) + name)) files::Rename(Folder(folder) + name, folder + name);
    };
    give(journal);
    for (const std::string& name : listing_files::List(Folder(folder), listNum))
        if (name != state) give(name);
    files::Rename(Folder(folder) + state, folder + state);
}

void Delete(const std::string& folder, std::int32_t listNum) noexcept {
    listing_files::TryDeleteAll(Folder(folder), listNum);
    Sweep(folder, listNum, [](std::uint32_t) { return false; });
}

void DeleteAll(const std::string& folder, const std::function<bool(std::int32_t)>& spared) noexcept {
    try {
        std::set<std::int32_t> listings;
        files::List(Folder(folder), [&](const std::string& name) {
            if (const auto listing = ListingOf(name)) listings.insert(*listing);
            return false;
        });
        for (const std::int32_t listNum : listings)
            if (!spared(listNum)) Delete(folder, listNum);
        files::TryDelete(Folder(folder));  // which works when it is empty
    } catch (...) {                        // it is looked at again at the next start
    }
}

void SetPhotosAside(const std::string& folder, std::int32_t listNum) {
    for (const std::string& name : PhotosOf(folder, listNum)) {
        // Through the working folder: only there files are set aside.
        files::Rename(Folder(folder) + name, folder + name);
        listing_files::SetAside(folder, name);
    }
}

}  // namespace lumarin::kept_files
