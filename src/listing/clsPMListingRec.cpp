#include "listing/clsPMListingRec.h"

#include <utility>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "listing/KeptFiles.h"
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
    owner_->StepsChange();
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
    const std::vector<int> rows = owner_->Photos().SelectedRows();
    const int count = owner_->Photos().Count(), selected = static_cast<int>(rows.size());
    // Several can be moved unless they all stand together at that end.
    const bool movable = count >= 2 && selected > 0;
    owner_->MoveUpButton().SetEnabled(movable && rows.back() >= selected);
    owner_->MoveDownButton().SetEnabled(movable && rows.front() < count - selected);
}

void clsPMListingRec::SaveState() {
    Settle();
    // The state comes last for a listing that is being loaded: without one it is not unsent work.
    WriteJournal();
    state_file::Write(folder_ + listing_files::StateName(state_.ListNum), state_);
}

/// The state as it is, with nothing under way.
photo_journal::Entry clsPMListingRec::JournalEntry() const {
    using photo_journal::Operation;
    return {.operation = HasUnsentChanges() ? Operation::None : Operation::Unchanged,
            .state = state_,
            .history = history_};
}

void clsPMListingRec::WriteJournal() {
    journaled_ = false;
    photo_journal::Write(folder_, JournalEntry());
    journaled_ = true;
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
    // A run that ended during an upload left the form without texts.
    for (int index = 0; index < state_.PhotoCount; ++index) {
        PhotoEntry& photo = EntryAt(index);
        if (photo.DescText.empty()) photo.DescText = descriptions_->Text(photo.DescCode);
        photo.SentLetter.clear();
    }
    TakeUpHistory(std::move(recovered));
    try {
        SaveState();
    } catch (const FileError&) {  // what lies there says the same
    }
}

/// The steps as far as they lead to the photos that are there.
void clsPMListingRec::TakeUpHistory(photo_journal::SavedWork recovered) {
    history_ = std::move(recovered.history);
    const std::size_t known = history_.Present().size();
    const auto count = static_cast<std::size_t>(state_.PhotoCount);
    if (history_.Empty() || known > count) {
        if (recovered.historyLost || kept_files::HasPhotos(folder_, state_.ListNum)) {
            historyLost_ = true;
            kept_files::SetPhotosAside(folder_, state_.ListNum);
        }
        return history_.Start(state_, !recovered.changed);
    }
    // Killed before its files went: the listing was not removed.
    if (const auto last = history_.NextUndo(); last && last->kind == StepKind::RemoveListing) history_.Undo();
    for (std::size_t index = known; index < count; ++index) {  // captured, but not counted yet
        const PhotoEntry& photo = state_.Photos[index];
        PhotoOrder after = history_.Present();
        after.push_back({history_.NewId(), photo.DescCode, photo.DescText});
        history_ = Noted(StepKind::Add, {after.back().id}, after);
    }
}

PhotoHistory clsPMListingRec::Noted(StepKind kind, const std::vector<std::uint32_t>& photos,
                                    PhotoOrder after) const {
    PhotoHistory next = history_;
    next.Note(kind, owner_->NextStepNumber(), photos, std::move(after));
    return next;
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
    DescribePhotos({owner_->Photos().Selected()}, text, code);
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

/// The last step that a listing can have: with its files goes how to get them back.
void clsPMListingRec::NoteRemoval() {
    PhotoHistory before = std::exchange(history_, Noted(StepKind::RemoveListing, {}, history_.Present()));
    try {
        WriteJournal();
        kept_files::TakeListing(folder_, state_.ListNum);
    } catch (...) {
        history_ = std::move(before);
        journaled_ = false;
        throw;
    }
}

void clsPMListingRec::CloseListing(LocalFiles localFiles, Publish publish) {
    if (publish == Publish::Yes) PublishFiles();
    if (localFiles == LocalFiles::Delete) {
        Settle();
        NoteRemoval();
        listing_files::SetOthersAside(folder_, state_.ListNum);
        LeaveOwnersList();
    }
    owner_ = nullptr;
    descriptions_ = nullptr;
    cropWindow_ = nullptr;
}

}  // namespace lumarin
