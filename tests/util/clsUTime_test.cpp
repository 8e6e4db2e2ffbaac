#include "util/clsUTime.h"

#include <gtest/gtest.h>

#include <ctime>

#include "base/Error.h"

namespace lumarin {

constexpr int Eastern = 300, India = -330;

TEST(UTime, Conversion_FollowsBiasAndSummerTime) {
    const clsUTime east(Eastern), eastNoSummer(420, clsUTime::SummerTime::None),
        india(India, clsUTime::SummerTime::None);
    const struct {
        const char* name;
        clsUTime zone;
        LocalTime local;
        UtcTime utc;
        bool bothWays = true;
    } cases[] = {
        {"winter, New Year", east, {2023, 12, 31, 22, 30, 15, 7}, {2024, 1, 1, 3, 30, 15, 7}},
        {"summer", east, {2024, 7, 4, 12}, {2024, 7, 4, 16}},
        {"leap day, east", india, {2024, 3, 1, 3}, {2024, 2, 29, 21, 30}},
        {"no summer time", eastNoSummer, {2024, 7, 4, 12}, {2024, 7, 4, 19}},
        {"before the beginning", east, {2024, 3, 10, 1, 59, 59, 999}, {2024, 3, 10, 6, 59, 59, 999}},
        {"left-out hour", east, {2024, 3, 10, 2, 30}, {2024, 3, 10, 7, 30}, false},
        {"after the beginning", east, {2024, 3, 10, 3}, {2024, 3, 10, 7}},
        {"repeated hour", east, {2025, 11, 2, 1, 30}, {2025, 11, 2, 5, 30}},
        {"after the end", east, {2025, 11, 2, 2}, {2025, 11, 2, 7}},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(WallClockMilliseconds(one.zone.ToUtc(one.local)), WallClockMilliseconds(one.utc))
            << one.name;
        if (!one.bothWays) continue;
        EXPECT_EQ(WallClockMilliseconds(one.zone.ToLocal(one.utc)), WallClockMilliseconds(one.local))
            << one.name;
    }
    EXPECT_EQ(clsUTime(Eastern).ToLocal({2025, 11, 2, 6, 30}).hour, 1)
        << "the second pass of the repeated hour";
}

TEST(UTime, Now_IsTheMachinesClockInUtc) {
    const std::time_t before = std::time(nullptr);
    const std::int64_t now = (WallClockMilliseconds(clsUTime::Now()) - WallClockMilliseconds({1970})) / 1000;
    EXPECT_TRUE(before <= now && now <= std::time(nullptr));
}

TEST(UTime, NonsenseIsRefused) {
    constexpr int Byte = 256, TwoBytes = 65536;  // by which a smaller number would take them for a date
    for (const LocalTime& time : {LocalTime{2023, 2, 29}, LocalTime{2024, 13, 1}, LocalTime{2024, 1, 1, 24},
                                  LocalTime{2024, 1 + Byte, 1}, LocalTime{2024, 1, 1 + Byte},
                                  LocalTime{2024 + TwoBytes, 1, 1}, LocalTime{2024, 1 - Byte, 1}})
        EXPECT_THROW(clsUTime(0).ToUtc(time), ApplicationError) << time.month;
    EXPECT_THROW(clsUTime(1441), ApplicationError);
}

}  // namespace lumarin
