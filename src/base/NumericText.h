#pragma once

#include <optional>
#include <string_view>

namespace lumarin {

/// The number that a text stands for by the platform's numeric test; nothing when it is not numeric. Besides
/// plain numbers the test takes a sign in front or behind, "$" in front and behind, parentheses for a
/// negative number, blanks around each of these, commas anywhere behind the first digit, an exponent after e
/// or d, and whole numbers after &H, &O and &. What double precision cannot hold is not numeric.
std::optional<double> NumericValue(std::string_view text);

}  // namespace lumarin
