#include "util/clsUTime.h"

#include <chrono>

#include "base/Error.h"

namespace lumarin {

namespace {

using namespace std::chrono;

constexpr std::int64_t Hour = 3'600'000;  // milliseconds
constexpr int LongestBias = 24 * 60;      // minutes
constexpr int FirstYear = 1, LastYear = 9999;
constexpr auto Switch = hours(2);  // of the day, at the beginning and at the end

constexpr bool IsWithin(int value, int first, int last) { return value >= first && value <= last; }

/// The library keeps a year in two bytes, month and day in one each, so their ranges come first.
bool IsDate(const LocalTime& time) {
    return IsWithin(time.year, FirstYear, LastYear) && IsWithin(time.month, 1, 12) &&
           IsWithin(time.day, 1, 31) && (year(time.year) / time.month / time.day).ok();
}

std::int64_t Milliseconds(const LocalTime& time) {
    if (!IsDate(time) || !IsWithin(time.hour, 0, 23) || !IsWithin(time.minute, 0, 59) ||
        !IsWithin(time.second, 0, 59) || !IsWithin(time.millisecond, 0, 999))
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
