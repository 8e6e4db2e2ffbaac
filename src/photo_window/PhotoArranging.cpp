#include <iterator>
#include <utility>

#include "photo_window/frmLumarin.h"

// How the photo list looks, and how its photos are put in another order.

namespace lumarin {

namespace {

/// A way to show the photos, by the name under which it is remembered.
struct PhotoView {
    const char* name;
    const char* caption;
    ListView::Arrangement arrangement;
    int width;  ///< of a picture, in pixels
    int height;
};

constexpr auto Grid = ListView::Arrangement::Grid;
constexpr PhotoView PhotoViews[] = {
    {"Small", "Small pictures", Grid, 80, 50},
    {"Medium", "Medium pictures", Grid, 112, 70},
    {"Large", "Large pictures", Grid, 176, 110},
    {"List", "List", ListView::Arrangement::Rows, 96, 60},
};
constexpr int UsualView = 1;

}  // namespace

void frmLumarin::SetUpPhotoList() {
    PhotoList.SetMultiSelect(true);
    PhotoList.SetKeepsSelection(true);  // the picture beside the list is always of some photo in it
    PhotoList.SetReorderable(true);
    PhotoList.RowsDragged = [this](int before) { DragPhotos(before); };
    PhotoList.SelectionChange = [this] { ShowPhotoCount(); };
    for (const PhotoView& view : PhotoViews) cmbPhotoView.AddItem(view.caption);
    cmbPhotoView.SetListIndex(UsualView);
    ShowPhotosAs(UsualView);
    cmbPhotoView.Click = [this] { PhotoViewChosen(); };
}

void frmLumarin::PhotoViewChosen() {
    ShowPhotosAs(cmbPhotoView.ListIndex());
    const std::string view = PhotoViews[cmbPhotoView.ListIndex()].name;
    if (std::exchange(settings_.photoView, view) != view) WritePhotoView(ports_.host.Common(), view);
}

void frmLumarin::ShowPhotosAs(int view) {
    const PhotoView& shown = PhotoViews[view];
    PhotoList.SetPictureSize({shown.width * TwipsPerPixel, shown.height * TwipsPerPixel});
    PhotoList.Arrange(shown.arrangement);
}

void frmLumarin::RecallPhotoView() {
    for (int view = 0; view < static_cast<int>(std::size(PhotoViews)); ++view)
        if (settings_.photoView == PhotoViews[view].name) cmbPhotoView.SetListIndex(view);
}

/// Delete removes the selected photos, Enter views the one that is shown, Ctrl or Alt with an arrow moves
/// them.
bool frmLumarin::PhotoKey(const KeyDown& pressed) {
    const bool isGrid = PhotoList.ArrangedAs() == Grid;
    const bool isUp = pressed.key == Key::Up || (isGrid && pressed.key == Key::Left);
    const bool isDown = pressed.key == Key::Down || (isGrid && pressed.key == Key::Right);
    if ((pressed.control || pressed.alt) && (isUp || isDown)) {
        cmdMove(isUp ? 0 : 1).Press();
        return true;
    }
    if (pressed.key == Key::Delete) DeleteSelectedPhoto();
    if (pressed.key == Key::Enter) ViewPhoto();
    return pressed.key == Key::Delete || pressed.key == Key::Enter;
}

void frmLumarin::DragPhotos(int before) {
    RunCommand("cmdMove", [&] {
        if (current_ != nullptr) current_->MovePhotos(PhotoList.SelectedRows(), before);
    });
}

}  // namespace lumarin
