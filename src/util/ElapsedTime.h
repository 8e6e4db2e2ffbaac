#pragma once

#include <cstdint>
#include <string>

namespace lumarin {

/// Minutes and seconds, two digits each ("01:15"); an hour and more goes on in minutes ("61:00"). The
/// clock may have been set back meanwhile: below 0 is "00:00".
inline std::string ElapsedText(std::int64_t milliseconds) {
    const std::int64_t seconds = milliseconds > 0 ? milliseconds / 1000 : 0;
    const auto twoDigits = [](std::int64_t number) {
        return (number < 10 ? "0" : "") + std::to_string(number);
    };
    return twoDigits(seconds / 60) + ":" + twoDigits(seconds % 60);
}

}  // namespace lumarin
