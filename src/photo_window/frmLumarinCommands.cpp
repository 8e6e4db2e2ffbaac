#include <set>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "lookup/frmFindProperty.h"
#include "photo_window/EachStep.h"
#include "photo_window/ImportSelection.h"
#include "photo_window/PhotoTools.h"
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

/// Of the selected photos.
void frmLumarin::CheckPresentDescriptions() {
    std::set<std::string> codes;
    if (current_ != nullptr)
        for (const int row : PhotoList.SelectedRows())
            codes.insert(current_->State().Photos.at(static_cast<std::size_t>(row)).DescCode);
    CheckDescriptions(Menu, descriptions_, codes);
}

}  // namespace lumarin
