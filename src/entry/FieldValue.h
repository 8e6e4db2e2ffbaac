#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace lumarin {

/// A column's value in the current row: null, a whole number or a text.
class FieldValue {
public:
    FieldValue() = default;
    explicit FieldValue(std::int64_t number) : value_(number) {}
    explicit FieldValue(std::string text) : value_(std::move(text)) {}

    bool IsNull() const { return std::holds_alternative<std::monostate>(value_); }
    /// Null unless it is a whole number.
    const std::int64_t* Number() const { return std::get_if<std::int64_t>(&value_); }
    /// "" for null; a number in decimal.
    std::string Text() const& {
        if (const auto* text = std::get_if<std::string>(&value_)) return *text;
        if (const auto* number = std::get_if<std::int64_t>(&value_)) return std::to_string(*number);
        return {};
    }
    std::string Text() && {
        if (auto* text = std::get_if<std::string>(&value_)) return std::move(*text);
        return static_cast<const FieldValue&>(*this).Text();
    }
    /// 0 for null; the leading whole number of a text.
    std::int32_t Integer() const;

private:
    std::variant<std::monostate, std::int64_t, std::string> value_;
};

}  // namespace lumarin
