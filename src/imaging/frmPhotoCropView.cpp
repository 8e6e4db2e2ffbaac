// The crop window's view: how large the stage is, which part of the picture fills it, and how sharp it is.
// Box, preview and all rules stay in the stage's own twips; the view is a lens over them.
#include <algorithm>
#include <cmath>

#include "base/Error.h"
#include "base/Numbers.h"
#include "imaging/frmPhotoCrop.h"

namespace lumarin {

namespace {

constexpr double StageMargin = 24 * TwipsPerPixel;
constexpr double ScreenMargin = 40 * TwipsPerPixel;  // what the window's frame takes of the screen
constexpr double ShareOfScreen = 0.8;                // what the window takes of it when it first opens
constexpr double ViewMargin = 12 * TwipsPerPixel;    // keeps the box's handles in reach
constexpr double SmallestZoom = 0.5;                 // shows what the box has beside the picture
constexpr double LargestZoom = 8;
constexpr double NearlyWhole = 0.02;       // the view snaps to the whole picture
constexpr int RestBeforeSharpening = 150;  // milliseconds
constexpr int LongestSharpSide = 4096;     // pixels

}  // namespace

// The window opens so large that the stage holds the box in both placements, as far as the screen allows.
void frmPhotoCrop::ChooseSize() {
    const Size room = crop::LargestPlacements(aspectRatio_);
    const Size screen = desktop().ScreenSize();
    const auto chosen = [](double inner, double stage, double needed, double ofScreen) {
        const double wanted = std::max(ofScreen * ShareOfScreen, inner + needed + 2 * StageMargin - stage);
        return std::max(inner, std::min(wanted, ofScreen - ScreenMargin));
    };
    SetUsualSize({chosen(InnerSize().width, Shape1.Width(), room.width, screen.width),
                  chosen(InnerSize().height, Shape1.Height(), room.height, screen.height)});
}

void frmPhotoCrop::ConnectView() {
    tmrSharpen.SetInterval(RestBeforeSharpening);
    tmrSharpen.Elapsed = [this] {
        tmrSharpen.SetEnabled(false);
        Sharpen();
    };
    Shape1.Zoomed = [this](const ZoomStep& step) { ZoomView(step); };
    Shape1.KeyReleased = [this](Key key) {
        if (key == Key::Space) spaceHeld_ = false;
    };
}

double frmPhotoCrop::FittingScale() const {
    const double across = (Shape1.Width() - 2 * ViewMargin) / Preview.Width();
    const double down = (Shape1.Height() - 2 * ViewMargin) / Preview.Height();
    return std::max(0.1, std::min(across, down));
}

void frmPhotoCrop::FitView() {
    zoom_ = 1;
    ShowView();
}

void frmPhotoCrop::ShowView() {
    LeavePhoto();
    const Rect& picture = Preview.Bounds();
    if (zoom_ <= 1) {
        middleX_ = picture.left + picture.width / 2;
        middleY_ = picture.top + picture.height / 2;
    }
    middleX_ = std::clamp(middleX_, picture.left, picture.Right());
    middleY_ = std::clamp(middleY_, picture.top, picture.Bottom());
    const double scale = FittingScale() * zoom_;
    Shape1.SetLens({scale, Shape1.Width() / 2 - middleX_ * scale, Shape1.Height() / 2 - middleY_ * scale});
    if (previewBitmap_ == nullptr) return;
    tmrSharpen.SetEnabled(false);  // the wait begins anew
    tmrSharpen.SetEnabled(true);
}

/// What is under the pointer stays there.
void frmPhotoCrop::ZoomView(const ZoomStep& step) {
    if (previewBitmap_ == nullptr) return;
    const double before = zoom_;
    zoom_ = std::clamp(zoom_ * step.factor, SmallestZoom, LargestZoom);
    if (std::abs(zoom_ - 1) < NearlyWhole) zoom_ = 1;
    middleX_ = step.x + (middleX_ - step.x) * before / zoom_;
    middleY_ = step.y + (middleY_ - step.y) * before / zoom_;
    ShowView();
}

/// The lens moves along, so that the pointer stays over the same place.
void frmPhotoCrop::PanView(const Mouse& mouse) {
    middleX_ -= mouse.x - lastX_;
    middleY_ -= mouse.y - lastY_;
    ShowView();
}

/// The picture's pixels that the view has room for: no more than it has, and none in vain.
crop::PreviewSize frmPhotoCrop::SharpSize() const {
    const double perTwip = Shape1.Lens().scale * desktop().PixelScale(*this) / TwipsPerPixel;
    const double longest = std::max(Preview.Width(), Preview.Height()) * perTwip;
    const double most = std::clamp(std::max(source_->Width(), source_->Height()), 1, LongestSharpSide);
    const double kept = perTwip * std::min(1.0, most / longest);
    const auto pixels = [kept](double twips) { return std::max(1, RoundToWhole(twips * kept)); };
    return {.width = pixels(Preview.Width()), .height = pixels(Preview.Height())};
}

void frmPhotoCrop::ShowPicture() {
    const crop::PreviewSize size = SharpSize();
    previewBitmap_ = std::make_shared<const Picture>(source_->Preview(size.width, size.height));
    if (turn_.degrees == 0) plainBitmap_ = previewBitmap_;
    sharp_ = true;
    lbmBM.SetImage(previewBitmap_);
    Preview.SetImage(previewBitmap_);
}

/// The photo takes the place of picture and box until anything changes.
void frmPhotoCrop::ShowPhoto() {
    if (ShowsPhoto()) return LeavePhoto();
    TakeInHand();
    const crop::MappedBox box = BoxInPicture();
    if (!CanCapture(box)) return;
    const HourglassPointer hourglass(desktop());
    picPhoto.SetImage(std::make_shared<const Picture>(source_->Photo(OrderOf(box))));
    PlacePhoto();
    picPhoto.SetVisible(true);
    Preview.SetVisible(false);
    CropBox.SetVisible(false);
}

void frmPhotoCrop::LeavePhoto() {
    if (!ShowsPhoto()) return;
    picPhoto.SetVisible(false);
    picPhoto.SetImage(nullptr);
    Preview.SetVisible(true);
    CropBox.SetVisible(true);
}

/// In the middle of the stage, in its own size where there is room for that.
void frmPhotoCrop::PlacePhoto() {
    const Lens& lens = Shape1.Lens();
    const double width = photoSize_.TargetWidth * TwipsPerPixel;
    const double height = photoSize_.TargetHeight * TwipsPerPixel;
    const double fitting = std::min(
        {1.0, (Shape1.Width() - 2 * ViewMargin) / width, (Shape1.Height() - 2 * ViewMargin) / height});
    const double scale = std::max(0.1, fitting) / lens.scale;
    const double middleX = (Shape1.Width() / 2 - lens.left) / lens.scale;
    const double middleY = (Shape1.Height() / 2 - lens.top) / lens.scale;
    picPhoto.Move({middleX - width * scale / 2, middleY - height * scale / 2, width * scale, height * scale});
}

void frmPhotoCrop::Sharpen() {
    CropBox.SetGuides(Guides::Thirds);
    if (previewBitmap_ == nullptr) return;
    const crop::PreviewSize size = SharpSize();
    if (sharp_ && size.width == previewBitmap_->width && size.height == previewBitmap_->height) return;
    try {
        ShowPicture();
    } catch (const Error&) {
        // What is seen already stays; the capture says what is wrong with the file.
    }
}

}  // namespace lumarin
