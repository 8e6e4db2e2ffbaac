#pragma once

#include <cstdint>

#include "base/Clock.h"

namespace lumarin {

/// A date and time in UTC; the same fields, another meaning.
using UtcTime = LocalTime;

/// UTC now, and the conversion between UTC and the local time of a zone.
///
/// A zone is a bias, the minutes by which its standard time lies behind UTC (300 for US Eastern, -60 for
/// Central Europe), and whether it has summer time. Summer time is one hour ahead, in a window that is the
/// same in every year and for every zone: from the second Sunday in March, 02:00 standard time, to the first
/// Sunday in November, 02:00 summer time, which is the rule of the United States and Canada since 2007. It
/// does not ask the machine, so that every machine converts alike.
class clsUTime {
public:
    enum class SummerTime { Observed, None };

    /// `bias` in minutes, at most a day either way; throws ApplicationError beyond.
    explicit clsUTime(int bias, SummerTime summerTime = SummerTime::Observed);

    /// The machine's clock, whatever its zone.
    static UtcTime Now();

    /// Throws ApplicationError for what is not a date or time of the years 1 to 9999. The hour that the end
    /// of summer time repeats is taken as summer time; the one that its beginning leaves out as standard time
    /// (02:30 is 03:30).
    UtcTime ToUtc(const LocalTime& local) const;

    /// Throws as `ToUtc`.
    LocalTime ToLocal(const UtcTime& utc) const;

private:
    std::int64_t biasMilliseconds_;
    SummerTime summerTime_;
};

}  // namespace lumarin
