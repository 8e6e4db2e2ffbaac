#include "platform/windows/twain/Containers.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace lumarin::twain {

namespace {

constexpr std::size_t FirstField = 2;  // behind the type
constexpr std::size_t FieldLength = 4;
constexpr std::size_t FirstOfList = 14;
constexpr double FractionsOfOne = 65536;

template <class Number>
std::optional<double> Read(std::span<const std::byte> bytes, std::size_t at) {
    if (at > bytes.size() || bytes.size() - at < sizeof(Number)) return std::nullopt;
    Number number{};
    std::memcpy(&number, bytes.data() + at, sizeof number);
    return static_cast<double>(number);
}

std::size_t LengthOf(TW_UINT16 type) {
    if (type == TWTY_INT8 || type == TWTY_UINT8) return 1;
    if (type == TWTY_INT16 || type == TWTY_UINT16 || type == TWTY_BOOL) return 2;
    return 4;
}

std::optional<double> Item(std::span<const std::byte> bytes, TW_UINT16 type, std::size_t at) {
    switch (type) {
        case TWTY_INT8:
            return Read<std::int8_t>(bytes, at);
        case TWTY_UINT8:
            return Read<std::uint8_t>(bytes, at);
        case TWTY_INT16:
            return Read<std::int16_t>(bytes, at);
        case TWTY_UINT16:
        case TWTY_BOOL:
            return Read<std::uint16_t>(bytes, at);
        case TWTY_INT32:
            return Read<std::int32_t>(bytes, at);
        case TWTY_UINT32:
            return Read<std::uint32_t>(bytes, at);
        case TWTY_FIX32: {
            const auto whole = Read<std::int16_t>(bytes, at);
            const auto fraction = Read<std::uint16_t>(bytes, at + 2);
            if (!whole || !fraction) return std::nullopt;
            return *whole + *fraction / FractionsOfOne;
        }
        default:
            return std::nullopt;
    }
}

TW_UINT16 TypeOf(const Container& container) {
    return static_cast<TW_UINT16>(Read<std::uint16_t>(container.bytes, 0).value_or(0xFFFF));
}

/// A number of the container's own, at the place of the field.
std::size_t Field(const Container& container, std::size_t index) {
    return static_cast<std::size_t>(
        Read<std::uint32_t>(container.bytes, FirstField + index * FieldLength).value_or(0));
}

std::optional<double> ListItem(const Container& container, std::size_t index) {
    const TW_UINT16 type = TypeOf(container);
    if (index >= Field(container, 0) || index > container.bytes.size()) return std::nullopt;
    return Item(container.bytes, type, FirstOfList + index * LengthOf(type));
}

/// Of a range: 0 smallest, 1 largest, 2 step, 4 in effect.
std::optional<double> RangeItem(const Container& container, std::size_t index) {
    return Item(container.bytes, TypeOf(container), FirstField + index * FieldLength);
}

std::optional<double> NearestOfRange(const Container& container, double wanted) {
    const auto smallest = RangeItem(container, 0), largest = RangeItem(container, 1),
               step = RangeItem(container, 2);
    if (!smallest || !largest || !step || *largest < *smallest) return std::nullopt;
    const double within = std::clamp(wanted, *smallest, *largest);
    if (*step <= 0) return within;
    return std::min(*largest, *smallest + std::round((within - *smallest) / *step) * *step);
}

std::optional<double> NearestOfList(const Container& container, double wanted) {
    std::optional<double> nearest;
    for (std::size_t i = 0;; ++i) {
        const auto value = ListItem(container, i);
        if (!value) return nearest;
        if (!nearest || std::abs(*value - wanted) < std::abs(*nearest - wanted)) nearest = value;
    }
}

}  // namespace

std::optional<double> CurrentValue(const Container& container) {
    switch (container.kind) {
        case TWON_ONEVALUE:
            return Item(container.bytes, TypeOf(container), FirstField);
        case TWON_ENUMERATION:
            return ListItem(container, Field(container, 1));
        case TWON_RANGE:
            return RangeItem(container, 4);
        default:
            return std::nullopt;
    }
}

std::optional<double> NearestValue(const Container& container, double wanted) {
    if (container.kind == TWON_ENUMERATION) return NearestOfList(container, wanted);
    if (container.kind == TWON_RANGE) return NearestOfRange(container, wanted);
    return CurrentValue(container);
}

TW_ONEVALUE MakeOneValue(TW_UINT16 type, double value) {
    if (type != TWTY_FIX32) return {type, static_cast<TW_UINT32>(static_cast<std::int64_t>(value))};
    const auto units = static_cast<std::int64_t>(std::lround(value * FractionsOfOne));
    // The whole number stands before the fraction.
    return {type, static_cast<TW_UINT32>((units >> 16 & 0xFFFF) | (units & 0xFFFF) << 16)};
}

}  // namespace lumarin::twain
