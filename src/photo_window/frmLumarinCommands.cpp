#include <map>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "lookup/frmFindProperty.h"
#include "photo_window/EachStep.h"
#include "photo_window/ImportSelection.h"
#include "photo_window/PhotoTools.h"
#include "photo_window/RefusedFiles.h"
#include "photo_window/frmLumarin.h"
#include "verify/frmVerifyPhotos.h"

// The commands of the photo window: tools, buttons and dropped files.

namespace lumarin {

void frmLumarin::ToolClicked(const std::string& name) {
    if (name == "Exit") return RunCommand(name, [this] { ports_.host.Common().EndJob(jobIndex_); });
    if (name == "Open") return OpenFiles(ImportKind::Open);
    if (name == "AcquireSingle" || name == "AcquireMultiple") return Acquire(name == "AcquireMultiple");
    if (name == "SelectSource") return SelectSource();
    if (name == "Undo") return Undo();
    if (name == "Redo") return Redo();
    if (name == "Copy") return CopyPhoto();
    if (name == "Paste") return PastePhoto();
    if (name == "SmartLoad") return OpenFiles(ImportKind::SmartLoad);
    if (name == "SendPhotos") return SendPhotos();
    if (name == "DeletePhoto") return DeleteSelectedPhoto();
    if (name == "RemoveEntry") return RemoveCurrentListing();
    if (name == "Browse") return Browse();
    if (name == "miHelp") return ShowHelp();
    if (name == "VerifyPhotos") return VerifyPhotos();
    if (name == "FilePreview") return ToggleFilePreview();
    ChooseDescription(name);
}

void frmLumarin::EnterListing() {
    RunCommand("cmdAdd", [this] {
        // Selected whatever comes of it, so that the next number replaces this one.
        txtID.SelectAll();
        if (LookUpListing(std::string(text::Trim(txtID.Text())), "") == LookupResult::NotFound)
            txtID.SetFocus();
    });
}

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
    RefusedFiles refused;
    std::map<std::string, std::string> unavailable;
    // Of several files those that are not photos are named together at the end; a single one at once.
    if (paths.size() > 1)
        cropWindow_->Refused = [&](const std::string& path, const std::string& why) {
            refused.Add(path, why);
        };
    for (std::size_t i = 0; i < paths.size(); ++i) {
        if (paths.size() > 1)
            cropWindow_->SetProgress("Picture " + std::to_string(i + 1) + " of " +
                                     std::to_string(paths.size()));
        if (kind == ImportKind::SmartLoad && !EnterListingOfFile(paths[i], refused, unavailable)) continue;
        if (current_ == nullptr) break;
        try {
            if (current_->AddPhoto(paths[i], CropMode::File, paths.size() > 1) == PhotoResult::Cancel) break;
        } catch (const Error& error) {  // the disk fails: the next file would fare no better
            if (paths.size() == 1) throw;
            for (; i < paths.size(); ++i) refused.Add(paths[i], error.Description());
            break;
        }
    }
    if (!refused.Empty())
        throw ApplicationError(kind == ImportKind::Open ? "frmLumarin-Open" : "frmLumarin-SmartLoad",
                               refused.Text());
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
    desktop().ShowMessage({.text = "Only picture files of this computer can be dropped here. Save the "
                                   "picture as a file first, then drop "
                                   "or open that file.",
                           .title = "Import Photo",
                           .buttons = Buttons::Ok,
                           .icon = Icon::Information},
                          this);
}

void frmLumarin::Browse() {
    RunCommand("Browse", [this] {
        std::vector<std::string> found;
        frmFindProperty search(ports_);
        if (!search.FindProperty(ListingSearch(), frmFindProperty::SetUpList | frmFindProperty::SearchAtOnce,
                                 frmFindProperty::ByUserLevel, frmFindProperty::ActiveStatus, found, this))
            return;
        EachStep each;
        for (const std::string& number : found) each.Do([&] { LookUpListing(number, ""); });
        if (!each.Failures().empty())
            throw ApplicationError("frmLumarin-Browse",
                                   "Not all listings could be opened:" + each.Failures());
    });
}

void frmLumarin::ViewPhoto() {
    RunCommand("imgMain", [this] {
        if (current_ == nullptr || PhotoList.Selected() < 0) return;
        const auto photo = ports_.imaging.Open(current_->PhotoPath(PhotoList.Selected()));
        auto picture = std::make_shared<const Picture>(photo->Preview(photo->Width(), photo->Height()));
        const int percent = frmPhotoViewer::FittingPercent(*picture, desktop().ScreenSize());
        viewer_ = std::make_unique<frmPhotoViewer>(desktop());
        viewer_->Init(picture, percent,
                      PhotoList.At(PhotoList.Selected()).text + " - " + std::to_string(current_->ListNum()));
        viewer_->Show(this);
    });
}

void frmLumarin::VerifyPhotos() {
    RunCommand("VerifyPhotos", [this] { frmVerifyPhotos(desktop(), ports_.host).ShowModal(this); });
}

void frmLumarin::ShowHelp() {
    RunCommand("miHelp", [this] { OpenHelp(); });
}

void frmLumarin::CopyPhoto() {
    RunCommand("Copy", [this] {
        if (current_ == nullptr || PhotoList.Selected() < 0) return;
        const HourglassPointer hourglass(desktop());
        const auto photo = ports_.imaging.Open(current_->PhotoPath(PhotoList.Selected()));
        desktop().SetClipboardPicture(photo->Preview(photo->Width(), photo->Height()));
        clipboardUsed_ = true;
    });
}

void frmLumarin::PastePhoto() {
    RunCommand("Paste", [this] {
        if (current_ == nullptr) return;
        const std::vector<std::string> copied = desktop().ClipboardFiles();
        if (copied.empty()) {
            current_->AddPhoto("", CropMode::Clipboard, false);
        } else {
            ImportPhotos(AsSelection(copied), ImportKind::Open);
        }
    });
}

void frmLumarin::MoveSelectedPhoto(int button) {
    RunCommand("cmdMove", [&] {
        if (current_ != nullptr) current_->ShiftPhotos(PhotoList.SelectedRows(), button == 0 ? 1 : -1);
    });
}

void frmLumarin::DeleteSelectedPhoto() {
    RunCommand("DeletePhoto", [this] {
        if (current_ != nullptr) current_->RemovePhotos(PhotoList.SelectedRows());
    });
}

void frmLumarin::RemoveCurrentListing() {
    RunCommand("RemoveEntry", [this] {
        if (current_ == nullptr) return;
        const std::string number = std::to_string(current_->ListNum());
        // Taken out first: closing selects a neighbour, which becomes current without being saved over.
        auto entry = records_.extract(number);
        clsPMListingRec* const closed = std::exchange(current_, nullptr);
        try {
            closed->CloseListing(LocalFiles::Delete, Publish::No);
        } catch (...) {
            records_.insert(std::move(entry));
            current_ = closed;
            throw;
        }
        NoteRemoved(*closed);
        if (RecList.Count() == 0) MakeCurrent(nullptr);
    });
}

void frmLumarin::ToggleFilePreview() {
    RunCommand("FilePreview", [this] {
        const bool preview = !Menu.IsChecked("FilePreview");
        Menu.CheckTool("FilePreview", preview);
        WriteFilePreview(ports_.host.Common(), preview);
    });
}

void frmLumarin::ChooseDescription(const std::string& tool) {
    const std::string code = DescriptionCodeOfTool(tool);
    if (code.empty()) return;
    RunCommand("View", [&] {
        if (current_ != nullptr)
            current_->DescribePhotos(PhotoList.SelectedRows(), descriptions_.Text(code), code);
    });
}

}  // namespace lumarin
