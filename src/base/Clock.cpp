#include "base/Clock.h"

#include <chrono>
#include <ctime>

namespace lumarin {

std::int64_t WallClockMilliseconds(const LocalTime& time) {
    using namespace std::chrono;
    const sys_days day = year(time.year) / month(static_cast<unsigned>(time.month)) /
                         std::chrono::day(static_cast<unsigned>(time.day));
    const auto instant =
        day.time_since_epoch() + hours(time.hour) + minutes(time.minute) + seconds(time.second);
    return duration_cast<milliseconds>(instant).count() + time.millisecond;
}

std::int64_t SecondsOfYear(const LocalTime& time) {
    const LocalTime newYear{.year = time.year};
    return (WallClockMilliseconds(time) - WallClockMilliseconds(newYear)) / 1000;
}

LocalTime SystemClock::Now() const {
    using namespace std::chrono;
    const auto now = time_point_cast<milliseconds>(system_clock::now());
    const std::time_t seconds = system_clock::to_time_t(now);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &seconds);
#else
    localtime_r(&seconds, &local);
#endif
    return {.year = local.tm_year + 1900,
            .month = local.tm_mon + 1,
            .day = local.tm_mday,
            .hour = local.tm_hour,
            .minute = local.tm_min,
            .second = local.tm_sec,
            .millisecond = static_cast<int>(now.time_since_epoch().count() % 1000)};
}

}  // namespace lumarin
