#include "util/frmProgress.h"

#include <gtest/gtest.h>

#include "support/FakeHost.h"
#include "support/ScriptedDesktop.h"

namespace lumarin {
namespace {

struct SetClock final : Clock {
    LocalTime Now() const override { return now; }
    LocalTime now{.year = 2001, .month = 12, .day = 31, .hour = 23, .minute = 59};
};

class Progress : public ::testing::Test {
protected:
    Progress() { link.Set(host); }

    testing::ScriptedDesktop desktop;
    testing::FakeHost host;
    HostLink link;
    SetClock clock;
    frmProgress window{desktop, clock, link};
};

TEST_F(Progress, Tick_ShowsMinutesAndSecondsSinceDisplay) {
    window.Display(ShowMode::Modeless, nullptr);
    EXPECT_EQ(window.Animation.File(), host.ProgramFolder() + "FileMove.avi");
    EXPECT_TRUE(window.Animation.AutoPlay());
    EXPECT_EQ(window.lblTime.Caption(), "00:00");
    const struct {
        LocalTime now;
        const char* text;
    } cases[] = {{{.year = 2002, .minute = 0, .second = 15}, "01:15"},
                 {{.year = 2002, .minute = 59, .second = 59, .millisecond = 999}, "60:59"},
                 {{.year = 2002, .hour = 2}, "121:00"},
                 {{.year = 2001}, "00:00"}};
    for (const auto& c : cases) {
        clock.now = c.now;
        window.Timer.Tick();
        EXPECT_EQ(window.lblTime.Caption(), c.text);
    }
}

TEST_F(Progress, CancelAndCloseBox_SetTheFlagAndLeaveTheWindow) {
    desktop.AtPendingEvents(1, [&] { window.cmdCancel.Press(); });
    window.Display(ShowMode::Modeless, nullptr);
    EXPECT_TRUE(window.Cancel());
    EXPECT_TRUE(window.IsShown());

    window.Display(ShowMode::Modeless, nullptr);
    EXPECT_FALSE(window.Cancel());
    EXPECT_FALSE(window.Unload(CloseReason::Frame));
    EXPECT_TRUE(window.Cancel());
    EXPECT_TRUE(window.Unload());
}

}  // namespace
}  // namespace lumarin
