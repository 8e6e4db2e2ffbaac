#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumarin {

/// Nearest whole number, ties to even, as the platform converts. Throws Error (overflow) when the
/// value does not fit or is not a number.
std::int32_t RoundToWhole(double value);

/// A listing number as it is typed or stands in a file name: a positive decimal number that fits 32
/// bits, without sign, blanks or leading zeros. Nothing otherwise.
std::optional<std::int32_t> ParseListingNumber(std::string_view text);

/// The leading whole number of a text: blanks, an optional minus, digits. 0 when there is none;
/// overflow wraps to 32 bits as the platform's settings reader does.
std::int32_t LeadingInteger(std::string_view text);

/// A decimal whole number that fits 32 bits, blanks around it allowed; nothing otherwise.
std::optional<std::int32_t> ParseInteger(std::string_view text);

/// A decimal number with an optional fraction, blanks around it allowed; nothing otherwise.
std::optional<double> ParseNumber(std::string_view text);

/// Shortest decimal text that reads back as the same single-precision number, never in exponent
/// form: 2415.5, 1830, -0.25.
std::string SingleText(float value);

}  // namespace lumarin
