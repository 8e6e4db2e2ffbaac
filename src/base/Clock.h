#pragma once

#include <cstdint>

namespace lumarin {

/// A local date and time to the millisecond.
struct LocalTime {
    int year = 0;
    int month = 1;  ///< 1 to 12
    int day = 1;    ///< 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
};

/// Milliseconds from the calendar's beginning to `time`, without regard to time zones: the difference
/// of two is the time between them on one wall clock.
std::int64_t WallClockMilliseconds(const LocalTime& time);

/// Whole seconds from 1 January of the time's own year, 00:00.
std::int64_t SecondsOfYear(const LocalTime& time);

/// Port: the local time now. Called on the user-interface thread; must not fail.
class Clock {
public:
    virtual ~Clock() = default;
    virtual LocalTime Now() const = 0;
};

/// The machine's clock in its time zone.
class SystemClock final : public Clock {
public:
    LocalTime Now() const override;
};

}  // namespace lumarin
