#include "base/Error.h"
#include "base/Files.h"
#include "base/Text.h"
#include "listing/ListingFiles.h"
#include "listing/StateFile.h"
#include "listing/clsPMListingRec.h"

namespace lumarin {

namespace {

/// Letter of the first published photo of this size; "" when there is none.
std::string PublishedLetter(const std::vector<std::string>& sizes, const std::string& size) {
    for (std::size_t i = 0; i < sizes.size() && i < static_cast<std::size_t>(MaximumPhotoSlots); ++i)
        if (sizes[i] == size) return std::string(1, static_cast<char>('a' + i));
    return {};
}

void AppendFile(std::string& fileList, const std::string& path) { fileList += " \"" + path + "\""; }

}  // namespace

std::uint64_t clsPMListingRec::LengthToSend(int index) const {
    try {
        return files::FileLength(PhotoPath(index));
    } catch (const FileError& error) {
        throw ApplicationError("frmLumarin-SendPhotos", "Photo " + std::to_string(index + 1) +
                                                            " of listing " + RowText() + " cannot be sent. " +
                                                            error.Description());
    }
}

int clsPMListingRec::PrepareUpload(std::string& fileList, const std::string& publishedSizes) {
    Settle();
    savedState_ = state_;
    // The manifest takes the state file's place for a while: the editing form waits in the journal.
    photo_journal::Write(folder_, JournalEntry());
    const std::vector<std::string> sizes =
        publishedSizes.empty() ? std::vector<std::string>() : text::Split(publishedSizes, ',');
    const std::string statePath = folder_ + listing_files::StateName(state_.ListNum);
    std::string list;
    AppendFile(list, statePath);
    int sent = 0;
    for (int index = 0; index < state_.PhotoCount; ++index) {
        PhotoEntry& photo = EntryAt(index);
        photo.SentLetter = PublishedLetter(sizes, std::to_string(LengthToSend(index)));
        photo.DescText.clear();
        if (!photo.SentLetter.empty()) continue;
        AppendFile(list, PhotoPath(index));
        ++sent;
    }
    state_.StreetNumber.clear();
    state_.StreetDirection.clear();
    state_.StreetName.clear();
    state_file::Write(statePath, state_);
    fileList += list;
    return sent;
}

void clsPMListingRec::RestoreAfterUpload() {
    if (!savedState_) return;
    state_ = *savedState_;
    savedState_.reset();
    SaveState();
}

}  // namespace lumarin
