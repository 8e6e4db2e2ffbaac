#include "imaging/frmSelectSource.h"
#include "support/PhotoWindowTest.h"

namespace lumarin {

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

TEST_F(AcquisitionTest, AcquireMultiple_FeederGoesOnAndTheGlassAsks) {
    scanner.pages = 5;
    WillCapture({300});
    desktop.Play("frmPhotoCrop", [](frmPhotoCrop& crop) {
        EXPECT_EQ(crop.Caption() + crop.lblPicture.Caption(), "Photo from TwainPicture 2");
        crop.cmdAbort.Press();
    });
    EXPECT_EQ(Acquire("AcquireMultiple"), 1);
    EXPECT_EQ(scanner.handedOver, 2);
    scanner.feeder = false;
    WillCapture({400, 500});
    for (const Answer answer : {Answer::Yes, Answer::No})
        desktop.Expect("Do you want to acquire another picture? Change the original first.", answer);
    EXPECT_EQ(Acquire("AcquireMultiple"), 3);
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

TEST_F(AcquisitionTest, SelectSource_EveryWayOut_DecidesWhatIsAcquiredFrom) {
    const std::pair<std::function<void(frmSelectSource&)>, const char*> cases[] = {
        {[](auto& choice) { choice.cmdOK.Press(); }, "dev:0"},  // none was chosen before
        {[](auto& choice) { choice.lisSources.Select(1), choice.cmdOK.Press(); }, "dev:1"},
        {[](auto& choice) { choice.cmdOK.Press(); }, "dev:1"},
        {[](auto& choice) { choice.lisSources.Select(0), choice.cmdCancel.Press(); }, "dev:1"},
        {[](auto& choice) { choice.lisSources.Select(0), choice.lisSources.DoubleClicked(); }, "dev:0"},
    };
    desktop.Expect(NoScannerSource);
    Acquire("SelectSource");
    scanner.sources = {{"dev:0", "Maker", "Flat", "flatbed scanner"}, {"dev:1", "", "", ""}};
    for (const auto& [choose, source] : cases) {
        desktop.Play("frmSelectSource", [&choose = choose](frmSelectSource& choice) {
            EXPECT_EQ(choice.lisSources.Cell(0, 0) + "," + choice.lisSources.Cell(1, 0), "Maker Flat,dev:1");
            choose(choice);
        });
        Acquire("SelectSource");
        desktop.Play("frmPhotoCrop", [](frmPhotoCrop& crop) { crop.cmdCancel.Press(); });
        Acquire("AcquireSingle");
        EXPECT_EQ(scanner.order->source, source);
    }
}

}  // namespace lumarin
