// Pictures that are chosen, dropped or copied as files become photos, one after the other.
#include <map>
#include <utility>

#include "base/Error.h"
#include "base/PutBack.h"
#include "base/Text.h"
#include "photo_window/ImportProgress.h"
#include "photo_window/ImportSelection.h"
#include "photo_window/RefusedFiles.h"
#include "photo_window/frmLumarin.h"

namespace lumarin {

void frmLumarin::OpenFiles(ImportKind kind) {
    RunCommand(kind == ImportKind::Open ? "Open" : "SmartLoad", [&] {
        const std::vector<std::string> paths = desktop().ChooseFiles(
            {.title = "Import Photo",
             .filter = "JPEG - JFIF Compliant (*.jpg,*.jif,*.jpeg)|*.jpg;*.jif;*.jpeg|All (*.*)|*.*",
             .folder = lastFolder_.empty() ? settings_.importFolder : lastFolder_,
             .several = true,
             .preview = Menu.IsChecked("FilePreview")},
            this);
        if (paths.empty()) return;
        lastFolder_ = text::UpToLastSeparator(paths.front());
        ImportPhotos(AsSelection(paths), kind);
    });
}

void frmLumarin::ImportPhotos(const std::string& selection, ImportKind kind) {
    const std::vector<std::string> paths = SelectedPaths(selection);
    const SeveralPictures pictures(*cropWindow_);
    ImportProgress progress(desktop(), *this, static_cast<int>(paths.size()));
    const Meanwhile stoppable(import_, &progress);
    RefusedFiles refused;
    // Of several files those that are not photos are named together at the end; a single one at once.
    if (paths.size() > 1)
        cropWindow_->Refused = [&](const std::string& path, const std::string& why) {
            refused.Add(path, why);
        };
    ImportEach(paths, kind, progress, refused);
    if (progress.Cancelled()) ShowSent(progress.Outcome());
    if (!refused.Empty())
        throw ApplicationError(kind == ImportKind::Open ? "frmLumarin-Open" : "frmLumarin-SmartLoad",
                               refused.Text());
}

void frmLumarin::ImportEach(const std::vector<std::string>& paths, ImportKind kind, ImportProgress& progress,
                            RefusedFiles& refused) {
    std::map<std::string, std::string> unavailable;
    for (std::size_t i = 0; i < paths.size() && progress.Next(paths[i]); ++i) {
        cropWindow_->SetProgress(progress.Text());
        if (kind == ImportKind::SmartLoad && !EnterListingOfFile(paths[i], refused, unavailable)) continue;
        if (current_ == nullptr) break;
        try {
            progress.Came(current_->AddPhoto(paths[i], CropMode::File, paths.size() > 1));
        } catch (const Error& error) {  // the disk fails: the next file would fare no better
            if (paths.size() == 1) throw;
            for (; i < paths.size(); ++i) refused.Add(paths[i], error.Description());
        }
    }
}

/// False when the file's name leads to no listing. `unavailable`: the numbers tried in vain, and why.
bool frmLumarin::EnterListingOfFile(const std::string& path, RefusedFiles& refused,
                                    std::map<std::string, std::string>& unavailable) {
    const std::string number = ListingNumberOfFile(path);
    if (number.empty()) {
        refused.Add(path,
                    "The name does not start with a listing number (4 to 6 digits, and something "
                    "behind them).");
        return false;
    }
    // A listing that was not to be had is not looked for again: that was said already.
    auto known = unavailable.find(number);
    if (known == unavailable.end()) {
        std::string reason = "Listing " + number + " was not found.";
        try {
            if (LookUpListing(number, "") == LookupResult::Found) return true;
        } catch (const Error& error) {  // found, but it cannot be loaded
            reason = error.Description();
        }
        known = unavailable.emplace(number, reason).first;
    }
    refused.Add(path, known->second);
    return false;
}

void frmLumarin::DroppedOnList(const std::vector<std::string>& paths) {
    RunCommand("Open", [&] {
        if (!paths.empty()) ImportPhotos(AsSelection(paths), ImportKind::Open);
    });
}

void frmLumarin::DroppedOnPicture(const std::vector<std::string>& paths) { DroppedOnList(paths); }

void frmLumarin::DroppedSomethingElse() {
    desktop().ShowMessage({.text = "What was dropped holds no picture, only an address or a text. Save the "
                                   "picture as a file first, then drop or open that file.",
                           .title = "Import Photo",
                           .buttons = Buttons::Ok,
                           .icon = Icon::Information},
                          this);
}

}  // namespace lumarin
