#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Files.h"
#include "listing/KeptFiles.h"
#include "listing/ListingFiles.h"
#include "photo_window/frmLumarin.h"

// Undo and redo. Each listing has steps of its own, the last of which may be its removal from the window;
// what can be undone is the latest step of the current listing or of those that were removed, whichever is
// later.

namespace lumarin {

namespace {

/// How many removed listings can come back at most; they wait until the next send.
constexpr std::size_t MostRemovedListings = 20;

/// What a step is called in front of the photos that it was done to.
const char* VerbOf(StepKind kind) {
    switch (kind) {
        case StepKind::Add:
            return "Add ";
        case StepKind::Delete:
            return "Delete ";
        case StepKind::Move:
            return "Move ";
        case StepKind::Describe:
            return "Describe ";
        case StepKind::RemoveListing:
            return "Remove listing ";
    }
    return "";
}

std::string Named(const StepName& step, std::int32_t listNum) {
    const std::string verb = VerbOf(step.kind);
    if (step.kind == StepKind::RemoveListing) return verb + std::to_string(listNum);
    if (step.photos == 1) return verb + "photo " + static_cast<char>('A' + step.first);
    return verb + std::to_string(step.photos) + " photos";
}

}  // namespace

void frmLumarin::ShowSteps() {
    const auto show = [this](const char* tool, const char* caption, const std::string& step) {
        const std::string named = tool + (": " + step);
        Menu.SetTexts(tool, step.empty() ? caption : "&" + named, step.empty() ? "" : named);
        Menu.EnableTool(tool, !step.empty());
    };
    const std::optional<StepName> none;
    const auto undo = current_ == nullptr ? none : current_->NextUndo();
    const auto redo = current_ == nullptr ? none : current_->NextRedo();
    const auto removal = RemovalToUndo();
    show("Undo", "&Undo",
         removal ? Named({.kind = StepKind::RemoveListing}, *removal)
         : undo  ? Named(*undo, current_->ListNum())
                 : "");
    show("Redo", "&Redo", redo ? Named(*redo, current_->ListNum()) : "");
}

/// The listing that was removed last, if nothing was done to the current one since.
std::optional<std::int32_t> frmLumarin::RemovalToUndo() const {
    if (removed_.empty()) return std::nullopt;
    const auto last = std::ranges::max_element(removed_, {}, [](const auto& one) { return one.second; });
    const auto undo = current_ == nullptr ? std::nullopt : current_->NextUndo();
    return undo && undo->number > last->second ? std::nullopt : std::optional(last->first);
}

void frmLumarin::Undo() {
    RunCommand("Undo", [this] {
        if (const auto removal = RemovalToUndo())
            BringListingBack(*removal);
        else if (current_ != nullptr)
            current_->Undo();
    });
}

void frmLumarin::Redo() {
    const auto redo = current_ == nullptr ? std::nullopt : current_->NextRedo();
    if (redo && redo->kind == StepKind::RemoveListing) return RemoveCurrentListing();
    RunCommand("Redo", [this] {
        if (current_ != nullptr) current_->Redo();
    });
}

void frmLumarin::NoteRemoved(const clsPMListingRec& removed) {
    removed_[removed.ListNum()] = removed.LatestStepNumber();
    while (removed_.size() > MostRemovedListings) {
        const auto oldest =
            std::ranges::min_element(removed_, {}, [](const auto& one) { return one.second; });
        kept_files::Delete(workingFolder_, oldest->first);
        removed_.erase(oldest);
    }
    ShowSteps();
}

void frmLumarin::BringListingBack(std::int32_t listNum) {
    if (current_ != nullptr) current_->SaveState();
    const auto removal = removed_.extract(listNum);
    clsPMListingRec* back = nullptr;
    try {
        kept_files::GiveListingBack(workingFolder_, listNum);
        back = TakeUpListing(std::to_string(listNum));
    } catch (const FileError&) {  // the disk fails: it can come back later, or is there at the next start
        removed_[listNum] = removal.mapped();
        kept_files::TakeListing(workingFolder_, listNum);
        throw;
    } catch (const Error& error) {
        unreadableStates_.emplace_back(listing_files::StateName(listNum), error.Description());
        ShowSteps();
        throw;
    }
    MakeCurrent(back);
    ReportLostSteps();
}

/// What earlier runs have taken out of the window; a removal that was interrupted is finished.
void frmLumarin::TakeUpRemovedListings() {
    const std::string kept = kept_files::Folder(workingFolder_);
    for (const std::int32_t listNum : kept_files::RemovedListings(workingFolder_)) {
        if (files::FileExists(workingFolder_ + listing_files::StateName(listNum))) {
            listing_files::TryDeleteAll(kept, listNum);  // it was loaded again since
            continue;
        }
        kept_files::FinishTaking(workingFolder_, listNum);
        removed_[listNum] = photo_journal::HistoryIn(kept, listNum).LatestNumber();
        lastStep_ = std::max(lastStep_, removed_[listNum]);
    }
    ForgetRemovedListings();
    ShowSteps();
}

/// Deletes what waits of listings that cannot come back.
void frmLumarin::ForgetRemovedListings() {
    kept_files::DeleteAll(workingFolder_, [this](std::int32_t listNum) {
        const auto isUnreadable = [&](const auto& state) {
            return listing_files::ListingOf(state.first) == listNum;
        };
        return removed_.contains(listNum) || records_.contains(std::to_string(listNum)) ||
               std::ranges::any_of(unreadableStates_, isUnreadable);
    });
}

void frmLumarin::ReportLostSteps() {
    std::string lost;
    for (const auto& [number, record] : records_)
        if (record->TakeLostHistory()) lost += "\n" + number;
    if (lost.empty()) return;
    desktop().ShowMessage(
        {.text = "What was done to these listings before can no longer be undone, because the "
                 "record of it is damaged:\n" +
                 lost +
                 "\n\nTheir photos and descriptions are not affected. Deleted photos that were "
                 "kept for them are now in the folder \"Set aside\" in " +
                 workingFolder_,
         .title = "Undo",
         .buttons = Buttons::Ok,
         .icon = Icon::Exclamation},
        this);
}

}  // namespace lumarin
