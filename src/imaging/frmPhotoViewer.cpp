#include "imaging/frmPhotoViewer.h"

#include <algorithm>

#include "base/Error.h"

namespace lumarin {

namespace {

constexpr double UsableScreen = 0.9;
constexpr int HelpPage = 3;

}  // namespace

frmPhotoViewer::frmPhotoViewer(Desktop& desktop) : Form(desktop, "frmPhotoViewer") {
    SetCaption("Photo");
    SetHelpContext(HelpPage);
    imgImage.MouseUp = [this](const Mouse& mouse) {
        if (mouse.button == MouseButton::Left) Unload();
    };
}

void frmPhotoViewer::Init(PicturePtr picture, int percent, const std::string& caption) {
    if (picture == nullptr || picture->IsEmpty() || percent <= 0)
        throw ApplicationError("frmPhotoViewer-Init", "There is no picture to show.");
    Load();
    SetCaption(caption);
    heightRatio_ = static_cast<float>(picture->height) / static_cast<float>(picture->width);
    const double twips = TwipsPerPixel * percent / 100;
    const Size size{picture->width * twips, picture->height * twips};
    SetInnerSize(size);
    imgImage.Move({0, 0, size.width, size.height});
    imgImage.SetImage(std::move(picture));
}

void frmPhotoViewer::OnResize() {
    if (heightRatio_ <= 0) return;
    const double width = InnerSize().width;
    imgImage.Move({0, 0, width, width * static_cast<double>(heightRatio_)});
}

int frmPhotoViewer::FittingPercent(const Picture& picture, const Size& screen) {
    const double usable = UsableScreen * 100 / TwipsPerPixel;
    const double fitting = std::min(screen.width * usable / std::max(picture.width, 1),
                                    screen.height * usable / std::max(picture.height, 1));
    return std::clamp(static_cast<int>(fitting), 1, 100);
}

}  // namespace lumarin
