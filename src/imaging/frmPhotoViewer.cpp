#include "imaging/frmPhotoViewer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Error.h"
#include "base/Numbers.h"

namespace lumarin {

namespace {

constexpr double UsableScreen = 0.9;
constexpr double LargestPercent = 300;
constexpr int HelpPage = 3;
constexpr int DoubleClickTime = 400;  // milliseconds
constexpr double DragThreshold = 4 * TwipsPerPixel;
constexpr double ZoomStepFactor = 1.25;
constexpr double NearestZoom = 8;
constexpr double NearestPixelZoom = 4;
constexpr double NearlyThePixels = 1.1;  // a view so close to the pixels shows nothing more
constexpr double ShareOfViewMoved = 0.1;

Key Digit(char digit) { return static_cast<Key>(digit); }

}  // namespace

frmPhotoViewer::frmPhotoViewer(Desktop& desktop) : Form(desktop, "frmPhotoViewer") {
    SetCaption("Photo");
    SetHelpContext(HelpPage);
    fraStage.SetWheelUse(WheelUse::ZoomsWithControl);
    fraStage.KeyPressed = [this](const KeyDown& pressed, bool& used) { used = KeyPressed(pressed); };
    fraStage.WheelTurned = [this](int notches) { GoTo(place_ + notches); };
    fraStage.Zoomed = [this](const ZoomStep& step) { ZoomTo(zoom_ * step.factor, step.x, step.y); };
    ConnectMouse();
}

void frmPhotoViewer::ConnectMouse() {
    imgImage.MouseDown = [this](const Mouse& mouse) {
        if (mouse.button == MouseButton::Left) MouseWentDown(mouse);
    };
    imgImage.MouseMove = [this](const Mouse& mouse) {
        if (held_) MouseMoved(mouse);
    };
    imgImage.MouseUp = [this](const Mouse& mouse) {
        if (mouse.button == MouseButton::Left) MouseWentUp();
    };
    tmrClick.SetInterval(DoubleClickTime);
    tmrClick.Elapsed = [this] {
        tmrClick.SetEnabled(false);
        if (!std::exchange(opening_, false)) Unload();
    };
}

void frmPhotoViewer::Init(PicturePtr picture, int percent, const std::string& caption) {
    if (picture == nullptr || picture->IsEmpty() || percent <= 0)
        throw ApplicationError("frmPhotoViewer-Init", "There is no picture to show.");
    Load();
    const double twips = TwipsPerPixel * percent / 100;
    const Size size{picture->width * twips, picture->height * twips};
    SetInnerSize(size);
    ShowPhoto(std::move(picture), caption);
    opening_ = true;
    tmrClick.SetEnabled(true);
}

void frmPhotoViewer::ShowPhoto(PicturePtr picture, const std::string& caption) {
    SetCaption(caption);
    if (picture != nullptr && !picture->IsEmpty())
        heightRatio_ = static_cast<float>(picture->height) / static_cast<float>(picture->width);
    imgImage.SetImage(std::move(picture));
    zoom_ = 1;
    OnResize();
}

void frmPhotoViewer::SetPlace(int place, int count, const std::string& view) {
    place_ = place;
    count_ = count;
    view_ = view;
    ShowText();
}

void frmPhotoViewer::OnResize() {
    if (heightRatio_ <= 0) return;
    const double width = InnerSize().width;
    imgImage.Move({0, 0, width, width * static_cast<double>(heightRatio_)});
    ShowView();
}

int frmPhotoViewer::FittingPercent(const Picture& picture, const Size& screen) {
    const double usable = UsableScreen * 100 / TwipsPerPixel;
    const double fitting = std::min({LargestPercent, screen.width * usable / std::max(picture.width, 1),
                                     screen.height * usable / std::max(picture.height, 1)});
    return std::max(1, static_cast<int>(fitting));
}

bool frmPhotoViewer::KeyPressed(const KeyDown& pressed) {
    if (MoveView(pressed) || Browse(pressed)) return true;
    if (pressed.key == Key::Plus)
        ZoomBy(ZoomStepFactor);
    else if (pressed.key == Key::Minus)
        ZoomBy(1 / ZoomStepFactor);
    else if (pressed.key == Digit('0'))
        ZoomBy(1 / zoom_);
    else if (pressed.key == Digit('1'))
        ZoomBy(PixelZoom() / zoom_);
    else
        return false;
    return true;
}

bool frmPhotoViewer::Browse(const KeyDown& pressed) {
    switch (pressed.key) {
        case Key::Left:
        case Key::Up:
        case Key::PageUp:
        case Key::Back:
            return GoTo(place_ - 1), true;
        case Key::Right:
        case Key::Down:
        case Key::PageDown:
        case Key::Space:
            return GoTo(place_ + 1), true;
        case Key::Home:
            return GoTo(0), true;
        case Key::End:
            return GoTo(count_ - 1), true;
        default:
            return false;
    }
}

/// With Shift the arrows move the view, up and down also without.
bool frmPhotoViewer::MoveView(const KeyDown& pressed) {
    const bool down = pressed.key == Key::Up || pressed.key == Key::Down;
    const bool across = pressed.shift && (pressed.key == Key::Left || pressed.key == Key::Right);
    if (!IsLargerThanWindow() || !(down || across)) return false;
    const double way =
        pressed.key == Key::Up || pressed.key == Key::Left ? -ShareOfViewMoved : ShareOfViewMoved;
    const double scale = fraStage.Lens().scale;
    (down ? middleY_ : middleX_) += way * (down ? InnerSize().height : InnerSize().width) / scale;
    ShowView();
    return true;
}

void frmPhotoViewer::GoTo(int place) {
    const int last = count_ - 1;
    const int wanted = std::clamp(place, 0, std::max(0, last));
    if (last >= 0 && wanted != place_) Wanted.Raise(wanted);
}

/// The view, at a zoom of 1, of a photo that is higher than the window.
double frmPhotoViewer::FittingScale() const {
    return std::min(1.0, InnerSize().height / std::max(1.0, imgImage.Height()));
}

/// The zoom at which each pixel of the photo is one of the screen.
double frmPhotoViewer::PixelZoom() const {
    if (imgImage.Image() == nullptr || imgImage.Width() <= 0) return 1;
    const double width = imgImage.Image()->width * TwipsPerPixel / desktop().PixelScale(*this);
    return width / (imgImage.Width() * FittingScale());
}

bool frmPhotoViewer::IsLargerThanWindow() const {
    const double scale = FittingScale() * zoom_;
    return imgImage.Width() * scale > InnerSize().width + 1 ||
           imgImage.Height() * scale > InnerSize().height + 1;
}

/// What is at this place of the photo stays where it is seen.
void frmPhotoViewer::ZoomTo(double zoom, double x, double y) {
    const double before = zoom_;
    zoom_ =
        std::clamp(zoom, std::min(1.0, PixelZoom()), std::max(NearestZoom, NearestPixelZoom * PixelZoom()));
    middleX_ = x + (middleX_ - x) * before / zoom_;
    middleY_ = y + (middleY_ - y) * before / zoom_;
    ShowView();
}

void frmPhotoViewer::ZoomBy(double factor) { ZoomTo(zoom_ * factor, middleX_, middleY_); }

/// And back. A photo that is seen in its pixels already, or larger, is seen twice as large.
void frmPhotoViewer::ZoomToPixels(double x, double y) {
    const bool showsAll = std::abs(zoom_ - 1) < NearlyThePixels - 1;
    ZoomTo(!showsAll ? 1 : PixelZoom() > NearlyThePixels ? PixelZoom() : 2, x, y);
}

void frmPhotoViewer::ShowView() {
    const double scale = FittingScale() * zoom_;
    // A photo that is smaller than the window stands in its middle, a larger one leaves no edge of it empty.
    const auto seen = [scale](double middle, double photo, double window) {
        const double half = window / 2 / scale;
        return photo <= 2 * half ? photo / 2 : std::clamp(middle, half, photo - half);
    };
    middleX_ = seen(middleX_, imgImage.Width(), InnerSize().width);
    middleY_ = seen(middleY_, imgImage.Height(), InnerSize().height);
    fraStage.SetLens(
        {scale, InnerSize().width / 2 - middleX_ * scale, InnerSize().height / 2 - middleY_ * scale});
    imgImage.SetMousePointer(IsLargerThanWindow() ? Pointer::Hand : Pointer::Default);
    ShowText();
}

void frmPhotoViewer::ShowText() {
    std::string text = count_ > 0 ? std::to_string(place_ + 1) + " of " + std::to_string(count_) + "   " : "";
    text += view_;
    if (imgImage.Image() == nullptr)
        text += "   cannot be shown";
    else if (zoom_ != 1)
        text += "   " + std::to_string(RoundToWhole(100 * zoom_ / PixelZoom())) + " %";
    lblPhoto.SetCaption(text);
}

void frmPhotoViewer::MouseWentDown(const Mouse& mouse) {
    const bool isSecond = tmrClick.Enabled();
    tmrClick.SetEnabled(opening_);
    isClick_ = !isSecond;
    held_ = true;
    heldX_ = mouse.x;
    heldY_ = mouse.y;
    if (isSecond && !opening_) ZoomToPixels(mouse.x, mouse.y);
}

/// The photo moves along, so that the pointer stays over the same place of it.
void frmPhotoViewer::MouseMoved(const Mouse& mouse) {
    const double scale = fraStage.Lens().scale;
    const bool isFar = std::hypot(mouse.x - heldX_, mouse.y - heldY_) * scale >= DragThreshold;
    if (isClick_ && !isFar) return;
    isClick_ = false;
    middleX_ -= mouse.x - heldX_;
    middleY_ -= mouse.y - heldY_;
    ShowView();
}

void frmPhotoViewer::MouseWentUp() {
    held_ = false;
    if (isClick_) tmrClick.SetEnabled(true);
}

}  // namespace lumarin
