#include "entry/job/clsLumarin.h"

#include "photo_window/frmLumarin.h"
#include "support/FakeArchiver.h"
#include "support/FakePdfLibrary.h"
#include "support/WindowTest.h"

namespace lumarin {

struct Tool : HostTool {
    void SetEnabled(bool on) override { enabled = on; }
    bool enabled = true;
};

class clsLumarinTest : public testing::WindowTest {
protected:
    /// Ends the job, from within whatever it is doing.
    void Drop() {
        job->UnloadObj();
        job.reset();
    }
    void ExpectOver() {
        EXPECT_TRUE(tool.enabled);
        EXPECT_TRUE(desktop.shown.empty());
    }

    testing::FakeArchiver archiver;
    testing::FakePdfLibrary pdf;
    Tool tool;
    ComponentPorts ports{desktop, imaging, archiver, clock, engine, pdf};
    std::unique_ptr<clsLumarin> job = std::make_unique<clsLumarin>(ports);
};

TEST_F(clsLumarinTest, Start_ThenEndedByTheHostOrTheFrame_ShowsOwnedWindowAndGivesTheToolBack) {
    for (const auto& [which, name] : {std::pair{0, "frmLumarin"}, {1, "frmAddDocument"}}) {
        host.switchValue = which;
        host.onEndJob = [&](int) { job->UnloadObj(); };
        for (const bool byFrame : {false, true}) {
            SCOPED_TRACE(name);
            if (which == 1)
                desktop.Play("frmListnumPrompt", [&](Form& prompt) {
                    EXPECT_TRUE(desktop.shown.empty());
                    prompt.Hide();
                });
            job->Start(host, 7, tool);
            EXPECT_FALSE(tool.enabled);
            EXPECT_EQ(desktop.shownWith[name], &host.MainForm());
            host.endedJobs.clear();
            if (byFrame)
                desktop.shown[name]->Unload(CloseReason::Frame);
            else
                job->UnloadObj();
            EXPECT_EQ(host.endedJobs.size(), byFrame ? 1 : 0);
            ExpectOver();
            EXPECT_THROW(job->UnloadObj(), Error);
        }
    }
}

TEST_F(clsLumarinTest, Start_SecondInstance_BothUseTheLaterHost) {
    testing::FakeHost later;
    Tool laterTool;
    clsLumarin laterJob{ports};
    job->Start(host, 1, tool);
    Form* first = desktop.shown["frmLumarin"];
    laterJob.Start(later, 2, laterTool);
    static_cast<frmLumarin*>(first)->Menu.ClickTool("Exit");
    EXPECT_TRUE(host.endedJobs.empty());
    EXPECT_EQ(later.endedJobs, std::vector<int>{1});
    job->UnloadObj();
    laterJob.UnloadObj();
}

TEST_F(clsLumarinTest, Start_WindowClosesItself_HostMayDropTheJobFromWithin) {
    host.switchValue = 1;
    host.offline = true;
    host.onEndJob = [&](int) { Drop(); };
    desktop.Expect("You are working offline! - This function requires an internet connection.");
    job->Start(host, 9, tool);
    EXPECT_EQ(host.endedJobs, std::vector<int>{9});
    ExpectOver();
}

TEST_F(clsLumarinTest, UnloadObj_WhileTheFirstListingIsAskedFor_ClosesThePromptAndShowsNothing) {
    host.switchValue = 1;
    desktop.Play("frmListnumPrompt", [&](Form&) { Drop(); });
    job->Start(host, 9, tool);
    ExpectOver();
}

}  // namespace lumarin
