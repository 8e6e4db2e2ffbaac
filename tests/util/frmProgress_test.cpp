#include "util/frmProgress.h"

#include "support/WindowTest.h"

namespace lumarin {

struct SetClock final : Clock {
    LocalTime Now() const override { return now; }
    LocalTime now{.year = 2001, .month = 12, .day = 31, .hour = 23, .minute = 59};
};

using Progress = testing::WindowTest;

TEST_F(Progress, Tick_ShowsMinutesAndSecondsSinceDisplay) {
    SetClock set;
    frmProgress window{desktop, set, link};
    window.Display(ShowMode::Modeless, nullptr);
    EXPECT_EQ(window.Animation.File(), host.ProgramFolder() + "FileMove.avi");
    const std::pair<LocalTime, const char*> cases[] = {
        {set.now, "00:00"},
        {{.year = 2002, .minute = 0, .second = 15}, "01:15"},
        {{.year = 2002, .minute = 59, .second = 59, .millisecond = 999}, "60:59"},
        {{.year = 2002, .hour = 2}, "121:00"},
        {{.year = 2001}, "00:00"},
    };
    for (const auto& [now, text] : cases) {
        set.now = now;
        window.Timer.Tick();
        EXPECT_EQ(window.lblTime.Caption(), text);
    }
}

}  // namespace lumarin
