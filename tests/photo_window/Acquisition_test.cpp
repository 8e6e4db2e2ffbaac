#include "PhotoWindowTest.h"
#include "imaging/frmSelectSource.h"

namespace lumarin {
namespace {

class AcquisitionTest : public testing::PhotoWindowTest {
protected:
    /// Runs a command with a listing open, and says how many photos that gave.
    int Acquire(const char* tool) {
        if (!window) OpenWith({"100124"});
        window->Menu.ClickTool(tool);
        EXPECT_TRUE(window->Enabled() && window->Menu.IsEnabled(tool));
        EXPECT_TRUE(!desktop.shown.contains("frmAcquire"));
        return window->PhotoList.Count();
    }
};

TEST_F(AcquisitionTest, AcquireMultiple_FeederPages_GoThroughTheCropWindowOneByOne) {
    scanner.pages = 4;
    WillCapture({300, 400});
    desktop.Play("frmPhotoCrop", [](frmPhotoCrop& crop) {
        EXPECT_EQ(crop.Caption() + crop.lblPicture.Caption(), "Photo from TwainPicture 3");
        crop.cmdAbort.Press();
    });
    EXPECT_EQ(Acquire("AcquireMultiple"), 2);
    EXPECT_EQ(scanner.handedOver, 3);
}

TEST_F(AcquisitionTest, AcquireMultiple_FromTheGlass_AsksForTheNext) {
    scanner.pages = 5;
    scanner.feeder = false;
    WillCapture({300, 400});
    for (const Answer answer : {Answer::Yes, Answer::No})
        desktop.Expect("Do you want to acquire another picture? Change the original first.", answer);
    EXPECT_EQ(Acquire("AcquireMultiple"), 2);
}

TEST_F(AcquisitionTest, AcquireSingle_DeviceFails_IsReportedAndToolsComeBack) {
    WillCapture({300});
    scanner.failsAfterwards = true;
    desktop.Expect("The paper is jammed.", "frmLumarin-AcquireSingle");
    EXPECT_EQ(Acquire("AcquireSingle"), 1);
}

TEST_F(AcquisitionTest, Acquire_CancelledWhileTheDeviceWorks_HandsNothingOver) {
    desktop.AtPendingEvents(2, [this] {  // the first is the progress window's own
        EXPECT_FALSE(window->Menu.IsEnabled("AcquireSingle") || window->Enabled());
        EXPECT_FALSE(desktop.shown["frmAcquire"]->Unload(CloseReason::Frame));
    });
    EXPECT_EQ(Acquire("AcquireSingle") + scanner.handedOver, 0);
}

TEST_F(AcquisitionTest, SelectSource_Chosen_IsTheOneThatIsAcquiredFrom) {
    scanner.sources = {{"dev:0", "Maker", "Flat", "flatbed scanner"}, {"dev:1", "", "", ""}};
    desktop.Play("frmSelectSource", [](frmSelectSource& choice) {
        choice.lisSources.Select(1);
        choice.cmdOK.Press();
    });
    Acquire("SelectSource");
    WillCapture({300});
    Acquire("AcquireSingle");
    EXPECT_EQ(scanner.order->source, "dev:1");
}

TEST_F(AcquisitionTest, Tools_ListingFull_AreDisabled) {
    GivenListing(100123, {1, 2, 3, 4});
    OpenWith({"100123"});
    EXPECT_FALSE(window->Menu.IsEnabled("AcquireSingle"));
    window->Menu.ClickTool("DeletePhoto");
    EXPECT_TRUE(window->Menu.IsEnabled("AcquireSingle"));
}

}  // namespace
}  // namespace lumarin
