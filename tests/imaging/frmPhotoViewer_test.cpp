#include "imaging/frmPhotoViewer.h"

#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

#include <memory>

namespace lumarin {
namespace {

using lumarin::testing::ScriptedDesktop;

constexpr double Pixel = TwipsPerPixel;

PicturePtr GivenPicture(int width, int height) {
    return std::make_shared<const Picture>(
        Picture{width, height, std::vector<std::uint8_t>(std::size_t(width * height) * 3)});
}

TEST(frmPhotoViewer_Init, WindowFitsThePicture) {
    const struct {
        int width, height, percent;
        Size inner;
    } cases[] = {{480, 300, 50, {240 * Pixel, 150 * Pixel}},
                 {480, 300, 100, {480 * Pixel, 300 * Pixel}},
                 {100, 400, 250, {250 * Pixel, 1000 * Pixel}}};
    for (const auto& given : cases) {
        ScriptedDesktop desktop;
        frmPhotoViewer viewer(desktop);
        viewer.Init(GivenPicture(given.width, given.height), given.percent, "100123 a");
        EXPECT_EQ(viewer.InnerSize(), given.inner) << given.percent;
        EXPECT_EQ(viewer.imgImage.Bounds(), (Rect{0, 0, given.inner.width, given.inner.height}))
            << given.percent;
        EXPECT_EQ(viewer.Caption(), "100123 a");
    }
}

TEST(frmPhotoViewer_Init, FrameIsAddedToThePicture) {
    ScriptedDesktop desktop;
    frmPhotoViewer viewer(desktop);
    viewer.Load();
    viewer.Placed({300, 400, 5000 + 120, 4000 + 480});
    viewer.InnerPlaced({5000, 4000});
    viewer.Init(GivenPicture(480, 300), 50, "");
    EXPECT_EQ(viewer.Bounds(), (Rect{300, 400, 240 * Pixel + 120, 150 * Pixel + 480}));
}

TEST(frmPhotoViewer_Resized, WidthDecidesAndProportionsStay) {
    ScriptedDesktop desktop;
    frmPhotoViewer viewer(desktop);
    viewer.Init(GivenPicture(480, 240), 100, "");
    viewer.InnerPlaced({600 * Pixel, 240 * Pixel});
    EXPECT_EQ(viewer.imgImage.Bounds(), (Rect{0, 0, 600 * Pixel, 300 * Pixel}));
    viewer.InnerPlaced({600 * Pixel, 900 * Pixel});
    EXPECT_EQ(viewer.imgImage.Bounds(), (Rect{0, 0, 600 * Pixel, 300 * Pixel}));
}

TEST(frmPhotoViewer_ImageClicked, WindowIsUnloaded) {
    ScriptedDesktop desktop;
    frmPhotoViewer viewer(desktop);
    viewer.Init(GivenPicture(4, 3), 100, "");
    viewer.Show(nullptr);
    viewer.imgImage.MouseWentUp({MouseButton::Left, 10, 10});
    EXPECT_FALSE(viewer.IsLoaded());
}

TEST(frmPhotoViewer_FittingPercent, LargePictureLeavesAMargin) {
    const Size screen{1280 * Pixel, 1000 * Pixel};
    EXPECT_EQ(frmPhotoViewer::FittingPercent(*GivenPicture(480, 300), screen), 100);
    EXPECT_EQ(frmPhotoViewer::FittingPercent(*GivenPicture(2304, 10), screen), 50);
    EXPECT_EQ(frmPhotoViewer::FittingPercent(*GivenPicture(10, 1800), screen), 50);
}

}  // namespace
}  // namespace lumarin
