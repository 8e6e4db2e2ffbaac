#include "base/Files.h"
#include "base/Text.h"
#include "listing/ListingFiles.h"
#include "listing/clsPMListingRec.h"

// Adding a photo, and moving one by a place. File names always follow the display order, so any change of
// order renames files; between two renames the journal lets a later run know what was meant.

namespace lumarin {

void clsPMListingRec::RefreshPictures(int from) {
    for (int row = from; row < owner_->Photos().Count(); ++row)
        owner_->Photos().SetPicture(row, PhotoPath(row));
}

bool clsPMListingRec::IsDuplicate(const std::string& path) const {
    const std::uint64_t length = files::FileLength(path);
    for (int index = 0; index < state_.PhotoCount; ++index)
        if (files::FileExists(PhotoPath(index)) && files::FileLength(PhotoPath(index)) == length) return true;
    return false;
}

PhotoResult clsPMListingRec::AddPhoto(const std::string& source, CropMode mode, bool showAbort) {
    Desktop& desktop = owner_->ScreenDesktop();
    if (state_.PhotoCount >= owner_->PhotoMaximum()) {
        const Answer answer = desktop.ShowMessage({.text = "Maximum number of photos exceeded",
                                                   .title = "Photos exceeded",
                                                   .buttons = Buttons::OkCancel,
                                                   .icon = Icon::Exclamation,
                                                   .modality = Modality::System},
                                                  &owner_->Window());
        return answer == Answer::Ok ? PhotoResult::Skip : PhotoResult::Cancel;
    }
    SaveState();
    PhotoEntry& entry = EntryAt(state_.PhotoCount);
    const std::string path = PhotoPath(state_.PhotoCount);
    const PhotoResult result = cropWindow_->CropPhoto(source, mode, showAbort, path, &owner_->Window());
    if (result == PhotoResult::Cancel) return result;
    if (result != PhotoResult::Done) return PhotoResult::Skip;

    const bool chosen = !cropWindow_->ChosenView().empty();
    entry.DescCode = chosen ? std::to_string(cropWindow_->ChosenViewData()) : DefaultDescriptionCode;
    entry.DescText = chosen ? cropWindow_->ChosenView() : descriptions_->Text(DefaultDescriptionCode);
    entry.SentLetter.clear();
    // By size alone: two different pictures of one length count as duplicates, and the server distinguishes
    // changed photos from unchanged ones by nothing else.
    if (IsDuplicate(path)) {
        files::Delete(path);
        desktop.ShowMessage({.text = "Duplicate photos not allowed",
                             .title = "Duplicate Photo",
                             .buttons = Buttons::OkCancel,
                             .icon = Icon::Exclamation,
                             .modality = Modality::System},
                            &owner_->Window());
        return PhotoResult::Skip;
    }
    AppendPhoto();
    return PhotoResult::Done;
}

void clsPMListingRec::AppendPhoto() {
    ListView& photos = owner_->Photos();
    const int row = state_.PhotoCount++;
    PhotoOrder after = history_.Present();
    after.push_back({history_.NewId(), EntryAt(row).DescCode, EntryAt(row).DescText});
    history_ = Noted(StepKind::Add, {after.back().id}, after);
    photos.InsertRow(row, PhotoRow(row));
    owner_->PhotoPreview().SetTag("");
    photos.Select(row);
    ShowPhoto(row);
    if (state_.PhotoCount >= owner_->PhotoMaximum()) UpdateAddState(false);
    UpdatePhotoCommands();
    UpdateMoveButtons();
    owner_->StepsChange();
    // Last: the photo is there already and would be taken up, only without its description.
    WriteJournal();
    SweepKept();
}

bool clsPMListingRec::Settle() {
    if (!interrupted_) return false;
    photo_journal::SavedWork recovered = photo_journal::Recover(folder_, state_.ListNum);
    interrupted_ = false;
    TakeUp(std::move(recovered));
    const int selected = owner_->Photos().Selected();
    ShowPhotos();
    if (selected > 0 && selected < state_.PhotoCount) owner_->Photos().Select(selected);
    return true;
}

/// What the journal says about the interrupted change is finished or undone, now or as soon as it can be.
void clsPMListingRec::Interrupted() noexcept {
    interrupted_ = true;
    try {
        Settle();
    } catch (...) {  // the disk still fails, and that is being reported
    }
}

void clsPMListingRec::RenameForMove(int from, int to) {
    // Every ".jpg" of the path is replaced, the folder's too.
    const std::string waiting = text::ReplaceAll(PhotoPath(from), ".jpg", ".tmp");
    files::Rename(PhotoPath(from), waiting);
    files::Rename(PhotoPath(to), PhotoPath(from));
    PhotoOrder after = history_.Present();
    std::swap(after.at(static_cast<std::size_t>(from)), after.at(static_cast<std::size_t>(to)));
    history_ = Noted(StepKind::Move, {after.at(static_cast<std::size_t>(to)).id}, after);
    std::swap(EntryAt(from), EntryAt(to));
    journaled_ = false;
    photo_journal::Write(folder_, {.operation = photo_journal::Operation::Move,
                                   .first = from,
                                   .second = to,
                                   .state = state_,
                                   .history = history_});
    files::Rename(waiting, PhotoPath(to));
}

void clsPMListingRec::MovePhoto(std::int16_t& direction) {
    ListView& photos = owner_->Photos();
    const int from = photos.Selected();
    const int to = from - direction;
    if (from < 0 || to < 0 || to >= state_.PhotoCount) return;

    if (Settle()) return;
    try {
        RenameForMove(from, to);
        WriteJournal();
    } catch (...) {
        Interrupted();
        throw;
    }
    SweepKept();

    const std::string text = photos.At(from).text;
    photos.RemoveRow(from);
    ListView::Row row = PhotoRow(to);
    row.text = text;
    photos.InsertRow(to, row);
    RefreshPictures(0);
    owner_->PhotoPreview().SetTag("");
    photos.Select(to);
    UpdateMoveButtons();
    owner_->StepsChange();
}

void clsPMListingRec::RemovePhoto() { RemovePhotos({owner_->Photos().Selected()}); }

}  // namespace lumarin
