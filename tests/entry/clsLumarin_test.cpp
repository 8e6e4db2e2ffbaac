#include "entry/job/clsLumarin.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "base/Files.h"
#include "documents/FakePdfLibrary.h"
#include "imaging/FakeImaging.h"
#include "photo_window/frmLumarin.h"
#include "support/FakeHost.h"
#include "support/ScriptedDesktop.h"

namespace lumarin {
namespace {

struct NoArchiver : ZipArchiver {
    void Create(const std::string&, const std::vector<std::string>&) override {
        FAIL() << "nothing is to be packaged";
    }
};

struct Tool : HostTool {
    void SetEnabled(bool on) override { enabled = on; }
    bool enabled = true;
};

class clsLumarinTest : public ::testing::Test {
protected:
    testing::ScriptedDesktop desktop;
    testing::FakeImaging imaging;
    NoArchiver archiver;
    SystemClock clock;
    NoEngineVersion engine;
    testing::FakePdfLibrary pdf;
    testing::FakeHost host;
    Tool tool;
    ComponentPorts ports{desktop, imaging, archiver, clock, engine, pdf};
    clsLumarin job{ports};
};

TEST_F(clsLumarinTest, Start_ThenUnloadObj_ShowsOwnedWindowAndGivesTheToolBack) {
    job.Start(host, 7, tool);
    EXPECT_FALSE(tool.enabled);
    ASSERT_EQ(desktop.shownWith.count("frmLumarin"), 1U);
    EXPECT_EQ(desktop.shownWith["frmLumarin"], static_cast<OwnerWindow*>(&host.MainForm()));
    job.UnloadObj();
    EXPECT_TRUE(tool.enabled);
    EXPECT_TRUE(desktop.shownWith.empty());
    EXPECT_TRUE(host.endedJobs.empty());
    EXPECT_THROW(job.UnloadObj(), Error);
}

TEST_F(clsLumarinTest, Start_BadPhotoSize_FailsAndLeavesTheToolDisabled) {
    files::WriteWhole(host.CityFolder() + "CityInfo.ini", "[Lumarin]\nPhoto Size=480,300\n");
    EXPECT_THROW(job.Start(host, 7, tool), Error);
    EXPECT_FALSE(tool.enabled);
    job.UnloadObj();
    EXPECT_TRUE(tool.enabled);
}

TEST_F(clsLumarinTest, Start_SecondInstance_BothUseTheLaterHost) {
    testing::FakeHost later;
    Tool laterTool;
    clsLumarin laterJob{ports};
    job.Start(host, 1, tool);
    Form* first = desktop.shown["frmLumarin"];
    laterJob.Start(later, 2, laterTool);
    static_cast<frmLumarin*>(first)->Menu.ClickTool("Exit");
    EXPECT_TRUE(host.endedJobs.empty());
    EXPECT_EQ(later.endedJobs, std::vector<int>{1});
    job.UnloadObj();
    laterJob.UnloadObj();
}

TEST_F(clsLumarinTest, FrameClose_HostUnloadsAtOnce_WindowIsGoneAndToolIsBack) {
    host.onEndJob = [&](int) { job.UnloadObj(); };
    job.Start(host, 7, tool);
    EXPECT_TRUE(desktop.shown["frmLumarin"]->Unload(CloseReason::Frame));
    EXPECT_EQ(host.endedJobs, std::vector<int>{7});
    EXPECT_TRUE(tool.enabled);
    EXPECT_TRUE(desktop.shown.empty());
}

TEST_F(clsLumarinTest, Start_SwitchOne_OpensTheDocumentManagerOnceAListingWasAskedFor) {
    host.switchValue = 1;
    desktop.Play("frmListnumPrompt", [&](Form& form) {
        EXPECT_TRUE(desktop.shown.empty());
        form.Hide();
    });
    job.Start(host, 7, tool);
    EXPECT_EQ(desktop.shownWith["frmAddDocument"], static_cast<OwnerWindow*>(&host.MainForm()));
    job.UnloadObj();
    EXPECT_TRUE(desktop.shown.empty());
}

TEST_F(clsLumarinTest, Start_WindowClosesItself_HostMayDropTheJobFromWithin) {
    host.switchValue = 1;
    host.offline = true;
    auto dropped = std::make_unique<clsLumarin>(ports);
    host.onEndJob = [&](int) {
        dropped->UnloadObj();
        dropped.reset();
    };
    desktop.Expect("You are working offline! - This function requires an internet connection.");
    dropped->Start(host, 9, tool);
    EXPECT_EQ(host.endedJobs, std::vector<int>{9});
    EXPECT_TRUE(tool.enabled);
    EXPECT_TRUE(desktop.shown.empty());
}

TEST_F(clsLumarinTest, UnloadObj_WhileTheFirstListingIsAskedFor_ClosesThePromptAndShowsNothing) {
    host.switchValue = 1;
    auto dropped = std::make_unique<clsLumarin>(ports);
    desktop.Play("frmListnumPrompt", [&](Form&) {
        dropped->UnloadObj();
        dropped.reset();
    });
    dropped->Start(host, 9, tool);
    EXPECT_TRUE(tool.enabled);
    EXPECT_TRUE(desktop.shown.empty());
}

}  // namespace
}  // namespace lumarin
