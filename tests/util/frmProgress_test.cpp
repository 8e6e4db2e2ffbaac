#include "util/frmProgress.h"

#include <tuple>

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

TEST_F(Progress, Sent_SaysPercentPartAndRemainingTime) {
    SetClock set;
    frmProgress window{desktop, set, link};
    window.SetParts({{"Listing 100123", 300}, {"Listing 100124", 0}, {"Listing 100125", 100}});
    window.Display(ShowMode::Modeless, nullptr);
    const std::tuple<int, int, int, const char*, const char*> cases[] = {
        {0, 0, 0, "Listing 100123 (1 of 3)", "--:--"},
        {1, 100, 10, "Listing 100123 (1 of 3)", "--:--"},
        {9, 100, 10, "Listing 100123 (1 of 3)", "01:21"},
        {10, 749, 74, "Listing 100123 (1 of 3)", "00:03"},
        {20, 760, 76, "Listing 100125 (3 of 3)", "00:06"},
        {40, 1000, 100, "Listing 100125 (3 of 3)", "00:00"},
    };
    for (const auto& [second, sent, percent, part, remaining] : cases) {
        SCOPED_TRACE(second);
        set.now.second = second;
        window.ShowSent(static_cast<std::uint64_t>(sent), sent == 0 ? 0 : 1000);
        window.Timer.Tick();
        EXPECT_EQ(window.prgSent.Value(), percent);
        EXPECT_EQ(window.lblPart.Caption(), part);
        EXPECT_EQ(window.lblRemaining.Caption(), remaining);
    }
}

}  // namespace lumarin
