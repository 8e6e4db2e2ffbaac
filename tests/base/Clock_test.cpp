#include "base/Clock.h"

#include <gtest/gtest.h>

namespace lumarin {

TEST(Clock, SecondsOfYear_LeapYears_Count) {
    EXPECT_EQ(SecondsOfYear({.year = 2026, .month = 1, .day = 1}), 0);
    EXPECT_EQ(SecondsOfYear({.year = 2026, .month = 3, .day = 1}), 59 * 86400);
    EXPECT_EQ(SecondsOfYear({.year = 2024, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 59}),
              366 * 86400 - 1);
}

TEST(Clock, SystemClock_Now_IsAPlausibleMoment) {
    const LocalTime now = SystemClock().Now();
    EXPECT_GE(now.year, 2024);
    EXPECT_LT(now.millisecond, 1000);
}

}  // namespace lumarin
