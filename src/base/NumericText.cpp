#include "base/NumericText.h"

#include <charconv>
#include <cstdint>
#include <string>

#include "base/Text.h"

namespace lumarin {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Takes the first character away when it is one of these.
bool Take(std::string_view& text, std::string_view wanted) {
    if (text.empty() || wanted.find(text.front()) == std::string_view::npos) return false;
    text.remove_prefix(1);
    return true;
}

struct Sign {
    bool seen = false, negative = false;
};

/// Takes away what stands on one side of a number. `parenthesis` is taken once, and not when it counts as
/// taken already.
void TakeAround(std::string_view& text, std::string_view parenthesis, bool& taken, Sign& sign) {
    for (bool currency = false;;) {
        text = text::TrimLeft(text);
        const bool minus = text.starts_with('-');
        if (!sign.seen && Take(text, "+-"))
            sign = {true, minus};
        else if (!taken && Take(text, parenthesis))
            taken = true;
        else if (!currency && Take(text, "$"))
            currency = true;
        else
            return;
    }
}

std::optional<double> TakeHexOrOctal(std::string_view& text) {
    text.remove_prefix(1);
    const int base = Take(text, "hH") ? 16 : 8;
    if (base == 8) Take(text, "oO");
    std::uint64_t value = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (problem != std::errc{}) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return static_cast<double>(value);
}

/// "e5", "D-3" in the form that the library reads; "" when no whole exponent stands there.
std::string TakeExponent(std::string_view& text) {
    std::string_view rest = text;
    std::string exponent = "e";
    if (!Take(rest, "eEdD")) return {};
    if (rest.starts_with('-')) exponent += '-';
    Take(rest, "+-");
    if (rest.empty() || !IsDigit(rest.front())) return {};
    for (; !rest.empty() && IsDigit(rest.front()); rest.remove_prefix(1)) exponent += rest.front();
    text = rest;
    return exponent;
}

std::optional<double> TakeDecimal(std::string_view& text) {
    std::string plain;
    bool fraction = false;
    for (; !text.empty(); text.remove_prefix(1)) {
        const char c = text.front();
        if (c == ',' ? plain.empty() : !IsDigit(c) && (c != '.' || fraction)) break;
        fraction = fraction || c == '.';
        if (c != ',') plain += c;
    }
    plain += TakeExponent(text);
    double value = 0;
    const auto [end, problem] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (problem != std::errc{} || end != plain.data() + plain.size()) return std::nullopt;
    return value;
}

}  // namespace

std::optional<double> NumericValue(std::string_view text) {
    Sign sign;
    bool opened = false;
    TakeAround(text, "(", opened, sign);
    const auto value = text.starts_with('&') ? TakeHexOrOctal(text) : TakeDecimal(text);
    bool closed = !opened;
    TakeAround(text, ")", closed, sign);
    if (!value || !closed || !text.empty()) return std::nullopt;
    return sign.negative || opened ? -*value : *value;
}

}  // namespace lumarin
