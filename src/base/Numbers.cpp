#include "base/Numbers.h"

#include <charconv>
#include <cmath>

#include "base/Error.h"
#include "base/Text.h"

namespace lumarin {

std::int32_t RoundToWhole(double value) {
    constexpr double Lowest = -2147483648.0;
    constexpr double Highest = 2147483647.0;
    // The default floating-point environment rounds halves to even.
    const double rounded = std::nearbyint(value);
    if (!(rounded >= Lowest && rounded <= Highest)) throw Error(6, "numbers", "Overflow");
    return static_cast<std::int32_t>(rounded);
}

std::optional<std::int32_t> ParseListingNumber(std::string_view text) {
    if (text.empty() || text.front() == '0') return std::nullopt;
    for (const char c : text)
        if (c < '0' || c > '9') return std::nullopt;
    return ParseInteger(text);
}

std::int32_t LeadingInteger(std::string_view text) {
    text = text::TrimLeft(text);
    const bool negative = !text.empty() && text.front() == '-';
    if (negative || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
    std::uint32_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        value = value * 10U + static_cast<std::uint32_t>(c - '0');
    }
    return static_cast<std::int32_t>(negative ? 0U - value : value);
}

std::optional<std::int32_t> ParseInteger(std::string_view text) {
    text = text::Trim(text);
    std::int32_t value = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (problem != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<double> ParseNumber(std::string_view text) {
    text = text::Trim(text);
    double value = 0;
    const auto [end, problem] =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (problem != std::errc{} || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::string SingleText(float value) {
    char buffer[64];
    const auto [end, problem] =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    return problem == std::errc{} ? std::string(buffer, end) : std::string("0");
}

}  // namespace lumarin
