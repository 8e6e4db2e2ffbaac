#include "listing/clsPMListingRec.h"

#include "base/Error.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "listing/ListingFiles.h"
#include "listing/StateFile.h"

namespace lumarin {

void clsPMListingRec::Connect(ListingOwner& owner, const DescriptionTable& descriptions,
                              frmPhotoCrop& cropWindow, const std::string& folder) {
    owner_ = &owner;
    descriptions_ = &descriptions;
    cropWindow_ = &cropWindow;
    folder_ = folder;
}

PhotoEntry& clsPMListingRec::EntryAt(int index) {
    if (index < 0 || index >= MaximumPhotoSlots) throw IndexError("clsPMListingRec", index);
    return state_.Photos[static_cast<std::size_t>(index)];
}

std::string clsPMListingRec::PhotoPath(int index) const {
    return folder_ + listing_files::PhotoName(state_.ListNum, index);
}

ListView::Row clsPMListingRec::PhotoRow(int index) const {
    return {.text = state_.Photos[static_cast<std::size_t>(index)].DescText,
            .tag = std::to_string(index),
            .picture = PhotoPath(index)};
}

void clsPMListingRec::ShowPhotos() {
    // Whatever happens, the photos of another listing are not shown for those of this one.
    owner_->Photos().Clear();
    owner_->PhotoPreview().SetTag("");
    owner_->PhotoPreview().SetImage(nullptr);
    if (Settle()) return;
    ListView& photos = owner_->Photos();
    for (int index = 0; index < state_.PhotoCount; ++index) photos.InsertRow(index, PhotoRow(index));
    if (photos.Count() > 0) {
        photos.Select(0);
        ShowPhoto(0);
    }
    UpdateAddState(state_.PhotoCount < owner_->PhotoMaximum());
    UpdatePhotoCommands();
    UpdateMoveButtons();
    ListView& listings = owner_->Listings();
    const int row = listings.FindText(RowText());
    if (row >= 0) listings.SetText(row, RowText());
}

void clsPMListingRec::ShowPhoto(int row) {
    const std::string path = PhotoPath(row);
    PictureBox& preview = owner_->PhotoPreview();
    if (preview.Tag() == path) return;
    preview.SetImage(owner_->LoadPhoto(path));
    preview.SetTag(path);
    UpdateMoveButtons();
}

void clsPMListingRec::UpdateAddState(bool enabled) {
    owner_->AddStateChanges(enabled);
    for (const char* tool : {"Paste", "Open"}) owner_->Tools().EnableTool(tool, enabled);
}

void clsPMListingRec::UpdatePhotoCommands() {
    for (const char* tool : {"Copy", "View", "DeletePhoto"})
        owner_->Tools().EnableTool(tool, state_.PhotoCount > 0);
    owner_->PhotoCountChanges();
}

void clsPMListingRec::UpdateMoveButtons() {
    const ListView& photos = owner_->Photos();
    const int selected = photos.Selected();
    const bool movable = photos.Count() >= 2 && selected >= 0;
    owner_->MoveUpButton().SetEnabled(movable && selected > 0);
    owner_->MoveDownButton().SetEnabled(movable && selected < photos.Count() - 1);
}

void clsPMListingRec::SaveState() {
    Settle();
    // The state comes last for a listing that is being loaded: without one it is not unsent work.
    if (!changed_) photo_journal::Write(folder_, JournalEntry());
    state_file::Write(folder_ + listing_files::StateName(state_.ListNum), state_);
    if (changed_) photo_journal::Remove(folder_, state_.ListNum);
}

/// The state as it is, with nothing under way.
photo_journal::Entry clsPMListingRec::JournalEntry() const {
    using photo_journal::Operation;
    return {.operation = changed_ ? Operation::None : Operation::Unchanged, .state = state_};
}

void clsPMListingRec::RecordChange() {
    changed_ = true;
    photo_journal::Write(folder_, JournalEntry());
}

ListView::Row clsPMListingRec::ListingRow() const {
    const bool showsDirection = owner_->Host().Common().ShowsStreetDirection();
    return {
        .text = RowText(),
        .subItems = {state_.StreetNumber, showsDirection ? state_.StreetDirection : "", state_.StreetName},
        .key = RowText()};
}

void clsPMListingRec::TakeUp(photo_journal::SavedWork recovered) {
    state_ = std::move(recovered.state);
    changed_ = changed_ || recovered.changed;
    // A run that ended during an upload left the form without texts.
    for (int index = 0; index < state_.PhotoCount; ++index) {
        PhotoEntry& photo = EntryAt(index);
        if (photo.DescText.empty()) photo.DescText = descriptions_->Text(photo.DescCode);
        photo.SentLetter.clear();
    }
    if (!files::FileExists(folder_ + listing_files::JournalName(state_.ListNum))) return;
    try {
        SaveState();
    } catch (const FileError&) {  // the journal, which stays, says the same
    }
}

void clsPMListingRec::OpenSaved(const std::string& listingNumber, const DescriptionTable& descriptions,
                                ListingOwner& owner, const std::string& folder, frmPhotoCrop& cropWindow) {
    const auto number = ParseListingNumber(listingNumber);
    if (!number)
        throw Error(ApplicationErrorNumber, "state file",
                    "\"" + listingNumber + "\" is not a listing number");
    photo_journal::SavedWork recovered = photo_journal::Recover(folder, *number);
    Connect(owner, descriptions, cropWindow, folder);
    TakeUp(std::move(recovered));
    owner_->Listings().AddRow(ListingRow());
    owner_->Tools().EnableTool("SendPhotos", true);
    owner_->SendButton().SetEnabled(true);
}

void clsPMListingRec::SetDescription(const std::string& text, const std::string& code) {
    const int row = owner_->Photos().Selected();
    if (row < 0 || row >= MaximumPhotoSlots) return;
    if (Settle()) return;
    PhotoEntry& photo = EntryAt(row);
    const PhotoEntry before = photo;
    photo.DescCode = code;
    photo.DescText = text;
    try {
        RecordChange();
    } catch (...) {
        photo = before;
        throw;
    }
    owner_->Photos().SetText(row, text);
}

void clsPMListingRec::PublishFiles() {
    std::string folder = owner_->Host().Common().ListingPhotoFolder(state_.ListNum);
    if (!folder.empty()) folder.pop_back();
    files::EnsureFolder(folder);
    folder += files::Separator;
    for (const std::string& name : files::List(folder, [this](const std::string& file) {
             return listing_files::BearsNumber(file, state_.ListNum);
         }))
        files::Delete(folder + name);
    for (const std::string& name : listing_files::List(folder_, state_.ListNum, ".jpg"))
        files::Copy(folder_ + name, folder + name);
}

void clsPMListingRec::LeaveOwnersList() {
    ListView& listings = owner_->Listings();
    const int row = listings.FindText(RowText());
    if (row >= 0) listings.RemoveRow(row);
    if (listings.Count() > 0) {
        listings.Select(row > 0 ? row - 1 : 0);
        return;
    }
    owner_->SendButton().SetEnabled(false);
    for (const char* tool : {"SendPhotos", "DeletePhoto", "View", "Copy"})
        owner_->Tools().EnableTool(tool, false);
    owner_->PhotoPreview().SetTag("");
    owner_->PhotoPreview().SetImage(nullptr);
    owner_->Photos().Clear();
    UpdateAddState(false);
    UpdateMoveButtons();
}

void clsPMListingRec::CloseListing(LocalFiles localFiles, Publish publish) {
    if (publish == Publish::Yes) PublishFiles();
    if (localFiles == LocalFiles::Delete) {
        listing_files::GiveUp(folder_, state_.ListNum);
        LeaveOwnersList();
    }
    owner_ = nullptr;
    descriptions_ = nullptr;
    cropWindow_ = nullptr;
}

}  // namespace lumarin
