#include <set>

#include "base/Error.h"
#include "base/Files.h"
#include "fuzz/Promise.h"
#include "listing/ListingFiles.h"
#include "listing/PhotoJournal.h"
#include "listing/StateFile.h"
#include "support/TemporaryFolder.h"

using namespace lumarin;

namespace {

constexpr std::int32_t Listing = 100123;
constexpr int Photos = 3;

void Prepare(const std::string& folder, const std::string& journal) {
    for (const std::string& name : listing_files::List(folder, Listing)) files::Delete(folder + name);
    ListingState state;
    state.ListNum = Listing;
    state.PhotoCount = Photos;
    state_file::Write(folder + listing_files::StateName(Listing), state);
    for (int photo = 0; photo < Photos; ++photo)
        files::WriteWhole(folder + listing_files::PhotoName(Listing, photo),
                          std::string(static_cast<std::size_t>(photo) + 1, 'p'));
    files::WriteWhole(folder + listing_files::JournalName(Listing), journal);
}

std::set<std::string> PhotosIn(const std::string& folder) {
    std::set<std::string> photos;
    for (const std::string& name : listing_files::List(folder, Listing))
        if (name.ends_with(".jpg") || name.ends_with(".tmp")) photos.insert(files::ReadAll(folder + name));
    return photos;
}

}  // namespace

/// Whatever stands in a listing's journal: at most the one photo that it says was being removed goes, and a
/// start that is broken off and done again finds what the first one left.
FUZZ(const std::string& journal) {
    static const testing::TemporaryFolder folder;
    Prepare(folder.Path(), journal);
    try {
        const ListingState state = photo_journal::Recover(folder.Path(), Listing).state;
        const auto left = PhotosIn(folder.Path());
        PROMISE(left.size() + 1 >= Photos);
        PROMISE(photo_journal::Recover(folder.Path(), Listing).state == state);
        PROMISE(PhotosIn(folder.Path()) == left);
    } catch (const Error& error) {
        PROMISE(!error.Description().empty());
        PROMISE(PhotosIn(folder.Path()).size() + 1 >= Photos);
    }
}
