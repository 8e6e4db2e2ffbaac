#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/windows/twain/Twain.h"

namespace lumarin::twain {

/// What a source says about one of its capabilities: one value, a list or a range of numbers.
struct Container {
    TW_UINT16 kind = 0;  ///< a TWON_ value
    std::span<const std::byte> bytes;
};

/// The value in effect; none when the container is damaged or of another kind.
std::optional<double> CurrentValue(const Container& container);
/// The nearest value that the container allows; none as above.
std::optional<double> NearestValue(const Container& container, double wanted);

TW_ONEVALUE MakeOneValue(TW_UINT16 type, double value);

}  // namespace lumarin::twain
