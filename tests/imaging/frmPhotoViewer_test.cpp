#include "imaging/frmPhotoViewer.h"

#include <gtest/gtest.h>

#include "support/ScriptedDesktop.h"

namespace lumarin {

PicturePtr GivenPicture(int width, int height) {
    return std::make_shared<const Picture>(
        Picture{width, height, std::vector<std::uint8_t>(std::size_t(width * height) * 3)});
}

TEST(frmPhotoViewer, InitAndResize_FitTheWindowWithItsFrame_AndWidthDecides) {
    testing::ScriptedDesktop desktop;
    frmPhotoViewer viewer{desktop};
    viewer.Load();
    viewer.Placed({300, 400, 5000 + 120, 4000 + 480});
    viewer.InnerPlaced({5000, 4000});
    viewer.Init(GivenPicture(100, 400), 250, "100123 a");
    EXPECT_EQ(viewer.imgImage.Bounds(), (Rect{0, 0, 250 * 15, 1000 * 15}));
    EXPECT_EQ(viewer.Bounds(), (Rect{300, 400, 250 * 15 + 120, 1000 * 15 + 480}));
    viewer.InnerPlaced({200 * 15, 900 * 15});
    EXPECT_EQ(viewer.imgImage.Bounds(), (Rect{0, 0, 200 * 15, 800 * 15}));
    viewer.imgImage.MouseWentUp({MouseButton::Left, 10, 10});
    EXPECT_FALSE(viewer.IsLoaded());
}

TEST(frmPhotoViewer, FittingPercent_LargePicture_LeavesAMargin) {
    const Size screen{1280 * 15, 1000 * 15};
    EXPECT_EQ(frmPhotoViewer::FittingPercent(*GivenPicture(480, 300), screen), 100);
    EXPECT_EQ(frmPhotoViewer::FittingPercent(*GivenPicture(2304, 10), screen), 50);
    EXPECT_EQ(frmPhotoViewer::FittingPercent(*GivenPicture(10, 1800), screen), 50);
}

}  // namespace lumarin
