#include <set>

#include "base/Error.h"
#include "base/Files.h"
#include "fuzz/Promise.h"
#include "listing/KeptFiles.h"
#include "listing/ListingFiles.h"
#include "listing/PhotoJournal.h"
#include "listing/StateFile.h"
#include "support/TemporaryFolder.h"

using namespace lumarin;

namespace {

constexpr std::int32_t Listing = 100123;
constexpr int Photos = 3;

ListingState State() {
    ListingState state;
    state.ListNum = Listing;
    state.PhotoCount = Photos;
    return state;
}

std::string Photo(int number) { return std::string(static_cast<std::size_t>(number) + 1, 'p'); }

/// A listing with its photos, and one that was deleted.
void Prepare(const std::string& folder, const std::string& journal) {
    for (const std::string& name : listing_files::List(folder, Listing)) files::Delete(folder + name);
    kept_files::Delete(folder, Listing);
    state_file::Write(folder + listing_files::StateName(Listing), State());
    for (int photo = 0; photo < Photos; ++photo)
        files::WriteWhole(folder + listing_files::PhotoName(Listing, photo), Photo(photo));
    files::EnsureFolder(kept_files::Folder(folder));
    files::WriteWhole(kept_files::PhotoPath(folder, Listing, 4), Photo(Photos));
    files::WriteWhole(folder + listing_files::JournalName(Listing), journal);
}

std::set<std::string> PhotosIn(const std::string& folder) {
    std::set<std::string> photos;
    for (const std::string& at : {folder, kept_files::Folder(folder)})
        for (const std::string& name : files::List(at, [](const std::string&) { return true; }))
            if (name.ends_with(".jpg") || name.ends_with(".tmp")) photos.insert(files::ReadAll(at + name));
    return photos;
}

void ExpectNothingLost(const std::string& folder) {
    try {
        const ListingState state = photo_journal::Recover(folder, Listing).state;
        const auto left = PhotosIn(folder);
        PROMISE(left.size() >= Photos);
        PROMISE(photo_journal::Recover(folder, Listing).state == state);
        PROMISE(PhotosIn(folder) == left);
    } catch (const Error& error) {
        PROMISE(!error.Description().empty());
        PROMISE(PhotosIn(folder).size() >= Photos);
    }
}

/// The bytes as a history that a sound journal holds: it is read as it was written, and can be gone through.
void TryHistory(const std::string& folder, const std::string& bytes) {
    try {
        PhotoHistory history = PhotoHistory::Decode(bytes);
        PROMISE(PhotoHistory::Decode(history.Encode()) == history);
        Prepare(folder, "");
        photo_journal::Write(folder, {.state = State(), .history = history});
        ExpectNothingLost(folder);
        while (history.CanUndo()) history.Undo(), history.NextRedo();
        history.Forget({1, 4});
        while (history.CanRedo()) history.Redo(), history.NextUndo();
    } catch (const Error& error) {
        PROMISE(!error.Description().empty());
    }
}

}  // namespace

/// Whatever stands in a listing's journal: at most the one photo that it says was being removed goes, and a
/// start that is broken off and done again finds what the first one left.
FUZZ(const std::string& bytes) {
    static const testing::TemporaryFolder folder;
    Prepare(folder.Path(), bytes);
    ExpectNothingLost(folder.Path());
    TryHistory(folder.Path(), bytes);
}
