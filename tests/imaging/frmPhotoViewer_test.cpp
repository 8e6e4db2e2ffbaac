#include "imaging/frmPhotoViewer.h"

#include <gtest/gtest.h>

#include <cmath>

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
    viewer.imgImage.MouseWentDown({MouseButton::Left, 10, 10});  // of the double click that has opened it
    viewer.imgImage.MouseWentUp({MouseButton::Left, 10, 10});
    viewer.tmrClick.Tick();
    ASSERT_TRUE(viewer.IsLoaded());
    viewer.imgImage.MouseWentDown({MouseButton::Left, 10, 10});
    viewer.imgImage.MouseWentUp({MouseButton::Left, 10, 10});
    viewer.tmrClick.Tick();
    EXPECT_FALSE(viewer.IsLoaded());
}

/// A window of 400 x 300 pixels over a photo of 1600 x 1200: what of it is seen, in its pixels.
class frmPhotoViewerTest : public ::testing::Test {
protected:
    frmPhotoViewerTest() {
        viewer.Init(GivenPicture(1600, 1200), 25, "");
        viewer.SetPlace(2, 12, "Pool");
        viewer.tmrClick.Tick();
    }
    std::string Seen() {
        const Lens& lens = viewer.fraStage.Lens();
        const auto pixels = [&](double twips) {
            return std::to_string(std::lround(twips / lens.scale / 15 * 4));
        };
        return pixels(-lens.left) + "," + pixels(-lens.top) + " " + pixels(viewer.InnerSize().width);
    }
    void Click(double x, double y) {
        viewer.imgImage.MouseWentDown({MouseButton::Left, x, y});
        viewer.imgImage.MouseWentUp({MouseButton::Left, x, y});
    }
    testing::ScriptedDesktop desktop;
    frmPhotoViewer viewer{desktop};
};

TEST_F(frmPhotoViewerTest, ZoomAndPan_ShowThePixelsAndNeverAnEmptyEdge) {
    EXPECT_EQ(Seen(), "0,0 1600");
    viewer.fraStage.PressKey({static_cast<Key>('1')});
    EXPECT_EQ(Seen(), "600,450 400");
    EXPECT_EQ(viewer.lblPhoto.Caption(), "3 of 12   Pool   100 %");
    viewer.imgImage.MouseWentDown({MouseButton::Left, 3000, 2250});
    viewer.imgImage.MouseMoved({MouseButton::Left, 3375, 2250 - 9000});  // 100 pixels to the right, 2400 up
    viewer.imgImage.MouseWentUp({MouseButton::Left, 3000, 2250});
    EXPECT_FALSE(viewer.tmrClick.Enabled()) << "a drag is no click";
    EXPECT_EQ(Seen(), "500,900 400");
    viewer.fraStage.PressKey({Key::Up});
    EXPECT_EQ(Seen(), "500,870 400");
    viewer.fraStage.Zoom({0.01, 0, 0});
    EXPECT_EQ(Seen(), "0,0 1600");
    for (const char* seen : {"300,0 400", "0,0 1600"}) {  // pixels, and back
        Click(1500, 0);
        Click(1500, 0);
        EXPECT_EQ(Seen(), seen);
        viewer.tmrClick.Tick();
        EXPECT_TRUE(viewer.IsLoaded());
    }
}

TEST_F(frmPhotoViewerTest, KeysAndWheel_AskForTheOtherPhotos) {
    std::string wanted;
    viewer.Wanted = [&](int place) { wanted += std::to_string(place) + " "; };
    for (const Key key : {Key::Left, Key::PageDown, Key::Home, Key::End}) viewer.fraStage.PressKey({key});
    for (const int notches : {2, -5}) viewer.fraStage.TurnWheel(notches);
    viewer.SetPlace(11, 12, "");
    viewer.fraStage.PressKey({Key::Right});  // there is no other
    EXPECT_EQ(wanted, "1 3 0 11 4 0 ");
    viewer.InnerPlaced({6000, 3000});
    viewer.ShowPhoto(GivenPicture(100, 400), "");
    EXPECT_EQ(viewer.fraStage.Lens(), (Lens{0.125, 2625, 0})) << "a high photo is seen whole, in the middle";
    viewer.ShowPhoto(nullptr, "");
    EXPECT_EQ(viewer.lblPhoto.Caption(), "12 of 12      cannot be shown");
}

TEST(frmPhotoViewer, FittingPercent_LeavesAMargin) {
    const Size screen{1280 * 15, 1000 * 15};
    EXPECT_EQ(frmPhotoViewer::FittingPercent(*GivenPicture(480, 300), screen), 240);
    EXPECT_EQ(frmPhotoViewer::FittingPercent(*GivenPicture(20, 30), screen), 300);
    EXPECT_EQ(frmPhotoViewer::FittingPercent(*GivenPicture(2304, 10), screen), 50);
    EXPECT_EQ(frmPhotoViewer::FittingPercent(*GivenPicture(10, 1800), screen), 50);
}

}  // namespace lumarin
