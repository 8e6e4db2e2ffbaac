#include "PhotoWindowTest.h"
#include "imaging/frmSelectSource.h"

namespace lumarin {
namespace {

class AcquisitionTest : public testing::PhotoWindowTest {
protected:
    void GivenOpenListing() {
        GivenListing(100124);
        Open();
        Enter("100124");
    }
};

TEST_F(AcquisitionTest, AcquireMultiple_FeederPages_GoThroughTheCropWindowOneByOne) {
    GivenOpenListing();
    scanner.pages = 3;
    WillCapture({300, 400});
    desktop.Play("frmPhotoCrop", [](Form& form) {
        auto& crop = static_cast<frmPhotoCrop&>(form);
        EXPECT_EQ(crop.Caption(), "Photo from Twain");
        EXPECT_EQ(crop.lblPicture.Caption(), "Picture 3");
        EXPECT_TRUE(crop.cmdAbort.Visible());
        crop.cmdCancel.Press();
    });
    window->Menu.ClickTool("AcquireMultiple");
    EXPECT_EQ(window->PhotoList.Count(), 2);
    EXPECT_TRUE(scanner.order->several);
    EXPECT_TRUE(window->Enabled());
    EXPECT_TRUE(window->Menu.IsEnabled("AcquireMultiple"));
    EXPECT_EQ(desktop.shown.count("frmAcquire"), 0U);
}

TEST_F(AcquisitionTest, AcquireMultiple_Abort_EndsTheAcquisition) {
    GivenOpenListing();
    scanner.pages = 3;
    desktop.Play("frmPhotoCrop", [](Form& form) { static_cast<frmPhotoCrop&>(form).cmdAbort.Press(); });
    window->Menu.ClickTool("AcquireMultiple");
    EXPECT_EQ(scanner.handedOver, 1);
}

TEST_F(AcquisitionTest, AcquireMultiple_FromTheGlass_AsksForTheNext) {
    GivenOpenListing();
    scanner.pages = 5;
    scanner.feeder = false;
    WillCapture({300, 400});
    const std::string question = "Do you want to acquire another picture? Change the original first.";
    desktop.Expect(question, Answer::Yes);
    desktop.Expect(question, Answer::No);
    window->Menu.ClickTool("AcquireMultiple");
    EXPECT_EQ(window->PhotoList.Count(), 2);
}

TEST_F(AcquisitionTest, AcquireSingle_DeviceFails_IsReportedAndToolsComeBack) {
    GivenOpenListing();
    WillCapture({300});
    scanner.failsAfterwards = true;
    desktop.Expect("The paper is jammed.");
    window->Menu.ClickTool("AcquireSingle");
    EXPECT_EQ(desktop.messages[0].title, "frmLumarin-AcquireSingle");
    EXPECT_EQ(window->PhotoList.Count(), 1);
    EXPECT_TRUE(window->Enabled());
    EXPECT_TRUE(window->Menu.IsEnabled("AcquireSingle"));
}

TEST_F(AcquisitionTest, Acquire_CancelledWhileTheDeviceWorks_HandsNothingOver) {
    GivenOpenListing();
    desktop.AtPendingEvents(2, [this] {  // the first is the progress window's own
        EXPECT_FALSE(window->Menu.IsEnabled("AcquireSingle"));
        EXPECT_FALSE(window->Enabled());
        EXPECT_FALSE(desktop.shown["frmAcquire"]->Unload(CloseReason::Frame));
    });
    window->Menu.ClickTool("AcquireSingle");
    EXPECT_EQ(scanner.handedOver, 0);
    EXPECT_EQ(window->PhotoList.Count(), 0);
}

TEST_F(AcquisitionTest, SelectSource_Chosen_IsTheOneThatIsAcquiredFrom) {
    GivenOpenListing();
    scanner.sources = {{"dev:0", "Maker", "Flat", "flatbed scanner"},
                       {"dev:1", "Maker", "Feed", "sheetfed scanner"}};
    desktop.Play("frmSelectSource", [](Form& form) {
        auto& choice = static_cast<frmSelectSource&>(form);
        choice.lisSources.Select(1);
        choice.cmdOK.Press();
    });
    window->Menu.ClickTool("SelectSource");
    WillCapture({300});
    window->Menu.ClickTool("AcquireSingle");
    EXPECT_EQ(scanner.order->source, "dev:1");
}

TEST_F(AcquisitionTest, Tools_ListingFull_AreDisabled) {
    GivenListing(100123, {1, 2, 3, 4});
    Open();
    EXPECT_FALSE(window->Menu.IsEnabled("AcquireSingle"));
    Enter("100123");
    EXPECT_FALSE(window->Menu.IsEnabled("AcquireSingle"));
    window->Menu.ClickTool("DeletePhoto");
    EXPECT_TRUE(window->Menu.IsEnabled("AcquireSingle"));
    EXPECT_TRUE(window->Menu.IsEnabled("SelectSource"));
}

}  // namespace
}  // namespace lumarin
