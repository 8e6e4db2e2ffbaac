#include "util/clsUTime.h"

#include <chrono>

#include "base/Error.h"

namespace lumarin {

namespace {

using namespace std::chrono;

constexpr std::int64_t Hour = 3'600'000;  // milliseconds
constexpr int LongestBias = 24 * 60;      // minutes
constexpr auto Switch = hours(2);         // of the day, at the beginning and at the end

std::int64_t Milliseconds(const LocalTime& time) {
    const year_month_day date(year(time.year), month(static_cast<unsigned>(time.month)),
                              day(static_cast<unsigned>(time.day)));
    const auto isWithin = [](int value, int end) { return value >= 0 && value < end; };
    if (!date.ok() || !isWithin(time.hour, 24) || !isWithin(time.minute, 60) || !isWithin(time.second, 60) ||
        !isWithin(time.millisecond, 1000))
        throw ApplicationError("clsUTime", "This is not a date and time.");
    return WallClockMilliseconds(time);
}

LocalTime FromMilliseconds(std::int64_t count) {
    const sys_time<milliseconds> instant{milliseconds(count)};
    const auto midnight = floor<days>(instant);
    const year_month_day date(midnight);
    const hh_mm_ss time(instant - midnight);
    return {.year = static_cast<int>(date.year()),
            .month = static_cast<int>(static_cast<unsigned>(date.month())),
            .day = static_cast<int>(static_cast<unsigned>(date.day())),
            .hour = static_cast<int>(time.hours().count()),
            .minute = static_cast<int>(time.minutes().count()),
            .second = static_cast<int>(time.seconds().count()),
            .millisecond = static_cast<int>(time.subseconds().count())};
}

struct Window {
    std::int64_t begin;  ///< standard time
    std::int64_t end;    ///< summer time
};

Window SummerOf(int inYear) {
    const auto count = [](auto sunday) {
        return duration_cast<milliseconds>(sys_days(sunday).time_since_epoch() + Switch).count();
    };
    return {count(year(inYear) / March / Sunday[2]), count(year(inYear) / November / Sunday[1])};
}

}  // namespace

clsUTime::clsUTime(int bias, SummerTime summerTime)
    : biasMilliseconds_(std::int64_t{bias} * 60 * 1000), summerTime_(summerTime) {
    if (bias < -LongestBias || bias > LongestBias)
        throw ApplicationError("clsUTime", "A time zone is at most a day away from UTC.");
}

UtcTime clsUTime::Now() {
    return FromMilliseconds(duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count());
}

UtcTime clsUTime::ToUtc(const LocalTime& local) const {
    const std::int64_t wall = Milliseconds(local);
    const Window summer = SummerOf(local.year);
    const bool isSummer =
        summerTime_ == SummerTime::Observed && wall >= summer.begin + Hour && wall < summer.end;
    return FromMilliseconds(wall + biasMilliseconds_ - (isSummer ? Hour : 0));
}

LocalTime clsUTime::ToLocal(const UtcTime& utc) const {
    const std::int64_t standard = Milliseconds(utc) - biasMilliseconds_;
    const Window summer = SummerOf(FromMilliseconds(standard).year);
    const bool isSummer =
        summerTime_ == SummerTime::Observed && standard >= summer.begin && standard < summer.end - Hour;
    return FromMilliseconds(standard + (isSummer ? Hour : 0));
}

}  // namespace lumarin
