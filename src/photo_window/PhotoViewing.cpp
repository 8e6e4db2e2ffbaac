// The viewer of the photo window: it shows the photo that is selected in the list, and leads to the others.
#include "photo_window/frmLumarin.h"

namespace lumarin {

namespace {

PicturePtr WholePicture(Imaging& imaging, const std::string& path) {
    const auto photo = imaging.Open(path);
    return std::make_shared<const Picture>(photo->Preview(photo->Width(), photo->Height()));
}

}  // namespace

void frmLumarin::ViewPhoto() {
    RunCommand("imgMain", [this] {
        if (current_ == nullptr || PhotoList.Selected() < 0) return;
        const PicturePtr picture = WholePicture(ports_.imaging, current_->PhotoPath(PhotoList.Selected()));
        viewer_ = std::make_unique<frmPhotoViewer>(desktop());
        viewer_->Wanted = [this](int row) {
            if (row < PhotoList.Count()) PhotoList.Select(row);
        };
        viewer_->Init(picture, frmPhotoViewer::FittingPercent(*picture, desktop().ScreenSize()), "");
        ShowInViewer(picture);
        viewer_->Show(this);
    });
}

void frmLumarin::ShowInViewer(PicturePtr picture) {
    const int row = PhotoList.Selected();
    const std::string& view = current_->State().Photos.at(static_cast<std::size_t>(row)).DescText;
    viewer_->ShowPhoto(std::move(picture), view + " - " + std::to_string(current_->ListNum()));
    viewer_->SetPlace(row, current_->GetPhotoCount(), view);
}

/// Whatever becomes of the selected photo, an open viewer shows it.
void frmLumarin::FollowInViewer() {
    if (viewer_ == nullptr || !viewer_->IsShown()) return;
    if (current_ == nullptr || PhotoList.Selected() < 0) {
        viewer_->Unload();
        return;
    }
    PicturePtr picture;
    try {
        picture = WholePicture(ports_.imaging, current_->PhotoPath(PhotoList.Selected()));
    } catch (const Error&) {  // the viewer says so, and leads on to the next
    }
    ShowInViewer(std::move(picture));
}

}  // namespace lumarin
