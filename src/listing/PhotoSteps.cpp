#include <algorithm>
#include <set>

#include "base/Error.h"
#include "base/Files.h"
#include "listing/KeptFiles.h"
#include "listing/clsPMListingRec.h"

// Steps over any number of photos, and the way back and forth between them. Photos that change their places
// are put away, the journal gets the new order, and they are fetched to their new places: up to the journal a
// later run puts them back, from then on it fetches the rest.

namespace lumarin {

namespace {

PhotoOrder Part(const PhotoOrder& order, const std::vector<int>& photos, bool chosen) {
    PhotoOrder part;
    for (int i = 0; i < static_cast<int>(order.size()); ++i)
        if ((std::ranges::find(photos, i) != photos.end()) == chosen)
            part.push_back(order[static_cast<std::size_t>(i)]);
    return part;
}

/// Up to the first place; those that stand together at the list's start stay.
void ShiftUp(PhotoOrder& order, const std::vector<int>& photos) {
    int least = 0;
    for (const int photo : photos) {
        const int to = std::max(photo - 1, least);
        std::swap(order[static_cast<std::size_t>(photo)], order[static_cast<std::size_t>(to)]);
        least = to + 1;
    }
}

bool StayInPlace(const PhotoOrder& from, const PhotoOrder& to) {
    return std::ranges::equal(from, to, {}, &KnownPhoto::id, &KnownPhoto::id);
}

std::vector<std::uint32_t> IdsOf(const PhotoOrder& photos) {
    std::vector<std::uint32_t> ids;
    for (const KnownPhoto& photo : photos) ids.push_back(photo.id);
    return ids;
}

}  // namespace

/// From the top, each once.
std::vector<int> clsPMListingRec::Existing(std::vector<int> photos) const {
    std::erase_if(photos, [this](int photo) { return photo < 0 || photo >= state_.PhotoCount; });
    const std::set<int> sorted(photos.begin(), photos.end());
    return {sorted.begin(), sorted.end()};
}

void clsPMListingRec::RemovePhotos(const std::vector<int>& photos) {
    const std::vector<int> removed = Existing(photos);
    if (removed.empty() || Settle()) return;
    TakeStep(StepKind::Delete, removed, Part(history_.Present(), removed, false));
}

void clsPMListingRec::ShiftPhotos(const std::vector<int>& photos, int direction) {
    std::vector<int> moved = Existing(photos);
    if (moved.size() == 1) {
        if (owner_->Photos().SelectedRows() != moved) owner_->Photos().Select(moved.front());
        auto places = static_cast<std::int16_t>(direction);
        return MovePhoto(places);
    }
    if (moved.empty() || Settle()) return;
    PhotoOrder after = history_.Present();
    if (direction > 0) {
        ShiftUp(after, moved);
    } else {  // the same, seen from the end
        std::vector<int> fromEnd;
        for (const int photo : moved) fromEnd.insert(fromEnd.begin(), state_.PhotoCount - 1 - photo);
        std::ranges::reverse(after);
        ShiftUp(after, fromEnd);
        std::ranges::reverse(after);
    }
    TakeStep(StepKind::Move, moved, std::move(after));
}

void clsPMListingRec::MovePhotos(const std::vector<int>& photos, int before) {
    const std::vector<int> moved = Existing(photos);
    if (moved.empty() || before < 0 || before > state_.PhotoCount) return;
    const auto inFront = std::ranges::count_if(moved, [&](int photo) { return photo < before; });
    const int to = before - static_cast<int>(inFront);
    // A neighbour's place is one place away whichever side of it is meant.
    if (moved.size() == 1 && std::abs(to - moved.front()) == 1) return ShiftPhotos(moved, moved.front() - to);
    if (Settle()) return;
    PhotoOrder after = Part(history_.Present(), moved, false);
    const PhotoOrder block = Part(history_.Present(), moved, true);
    after.insert(after.begin() + to, block.begin(), block.end());
    TakeStep(StepKind::Move, moved, std::move(after));
}

void clsPMListingRec::DescribePhotos(const std::vector<int>& photos, const std::string& text,
                                     const std::string& code) {
    const std::vector<int> described = Existing(photos);
    if (described.empty() || Settle()) return;
    PhotoOrder after = history_.Present();
    for (const int photo : described) {
        after[static_cast<std::size_t>(photo)].DescCode = code;
        after[static_cast<std::size_t>(photo)].DescText = text;
    }
    TakeStep(StepKind::Describe, described, std::move(after));
}

/// Nothing when it would change nothing.
void clsPMListingRec::TakeStep(StepKind kind, const std::vector<int>& photos, PhotoOrder after) {
    const PhotoOrder& present = history_.Present();
    if (after == present) return;
    const std::vector<std::uint32_t> ids = IdsOf(Part(present, photos, true));
    Arrange(Noted(kind, ids, std::move(after)));
    SweepKept();
    ShowArranged(ids, photos.front());
}

void clsPMListingRec::Arrange(PhotoHistory next) {
    if (!journaled_) WriteJournal();
    const PhotoOrder present = history_.Present();
    if (StayInPlace(present, next.Present())) return Become(std::move(next));
    try {
        for (int place = 0; place < static_cast<int>(present.size()); ++place) {
            const std::uint32_t id = present[static_cast<std::size_t>(place)].id;
            if (PlaceOf(next.Present(), id) >= 0) continue;
            if (const auto fingerprint = kept_files::FingerprintOf(PhotoPath(place)))
                next.SetFingerprint(id, *fingerprint);
        }
        kept_files::PutAway(folder_, state_.ListNum, present, next.Present());
        Become(std::move(next));
        kept_files::Fetch(folder_, state_.ListNum, history_.Present());
    } catch (...) {
        Interrupted();
        throw;
    }
}

/// From here on the listing is as `next` says, whatever becomes of this run.
void clsPMListingRec::Become(PhotoHistory next) {
    const ListingState stateBefore = state_;
    const PhotoHistory historyBefore = std::exchange(history_, std::move(next));
    const PhotoOrder& present = history_.Present();
    state_.PhotoCount = static_cast<std::int32_t>(present.size());
    state_.Photos = {};
    for (std::size_t i = 0; i < present.size(); ++i)
        state_.Photos.at(i) = {present[i].DescCode, present[i].DescText, ""};
    try {
        WriteJournal();
    } catch (...) {
        state_ = stateBefore;
        history_ = historyBefore;
        throw;
    }
}

void clsPMListingRec::SweepKept() const noexcept {
    kept_files::Sweep(folder_, state_.ListNum, [this](std::uint32_t id) { return history_.MayComeBack(id); });
}

/// Selects those of the photos that are there, else the place. Rows are changed where they are, so that the
/// list does not jump.
void clsPMListingRec::ShowArranged(const std::vector<std::uint32_t>& selected, int place) {
    ListView& photos = owner_->Photos();
    while (photos.Count() > state_.PhotoCount) photos.RemoveRow(photos.Count() - 1);
    for (int row = 0; row < state_.PhotoCount; ++row) {
        if (row == photos.Count())
            photos.InsertRow(row, PhotoRow(row));
        else
            photos.SetText(row, EntryAt(row).DescText);
    }
    RefreshPictures(0);
    owner_->PhotoPreview().SetTag("");
    UpdateAddState(state_.PhotoCount < owner_->PhotoMaximum());
    if (state_.PhotoCount > 0) {
        std::vector<int> rows;
        for (const std::uint32_t id : selected) rows.push_back(PlaceOf(history_.Present(), id));
        rows = Existing(rows);
        if (rows.empty()) rows = {std::clamp(place, 0, state_.PhotoCount - 1)};
        photos.SelectRows(rows);
        ShowPhoto(photos.Selected());
    } else {
        owner_->PhotoPreview().SetImage(nullptr);
    }
    UpdatePhotoCommands();
    UpdateMoveButtons();
    owner_->StepsChange();
}

void clsPMListingRec::Undo() {
    if (!history_.CanUndo()) return;
    PhotoHistory next = history_;
    const std::vector<std::uint32_t> photos = next.Undo();
    Travel(std::move(next), photos, "frmLumarin-Undo");
}

void clsPMListingRec::Redo() {
    if (!history_.CanRedo() || history_.NextRedo()->kind == StepKind::RemoveListing) return;
    PhotoHistory next = history_;
    const std::vector<std::uint32_t> photos = next.Redo();
    Travel(std::move(next), photos, "frmLumarin-Redo");
}

/// The photos of an order that are not there now and cannot be fetched unharmed.
std::vector<KnownPhoto> clsPMListingRec::LostPhotos(const PhotoOrder& wanted) const {
    std::vector<KnownPhoto> lost;
    for (const KnownPhoto& photo : wanted) {
        if (PlaceOf(history_.Present(), photo.id) >= 0) continue;
        const auto found =
            kept_files::FingerprintOf(kept_files::PhotoPath(folder_, state_.ListNum, photo.id));
        if (!found || found != history_.FingerprintOf(photo.id)) lost.push_back(photo);
    }
    return lost;
}

void clsPMListingRec::Travel(PhotoHistory next, const std::vector<std::uint32_t>& photos,
                             const char* command) {
    if (Settle()) return;
    const std::vector<KnownPhoto> lost = LostPhotos(next.Present());
    next.Forget(IdsOf(lost));
    const int selectedBefore = owner_->Photos().Selected();
    Arrange(std::move(next));
    ShowArranged(photos, selectedBefore);
    if (lost.empty()) return;
    std::string names;
    for (const KnownPhoto& photo : lost) names += "\n" + photo.DescText;
    throw ApplicationError(command,
                           "These photos of listing " + RowText() +
                               " cannot come back, because the files in which they were kept are missing or "
                               "damaged:\n" +
                               names + "\n\nEverything else was done.");
}

}  // namespace lumarin
