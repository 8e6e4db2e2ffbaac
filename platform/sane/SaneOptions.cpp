#include "platform/sane/SaneOptions.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "base/Numbers.h"
#include "platform/sane/SaneStatus.h"

namespace lumarin::sane {

namespace {

bool IsNumber(const SANE_Option_Descriptor& option) {
    return (option.type == SANE_TYPE_INT || option.type == SANE_TYPE_FIXED) &&
           option.size == sizeof(SANE_Word);
}

double FromWord(const SANE_Option_Descriptor& option, SANE_Word word) {
    return option.type == SANE_TYPE_FIXED ? SANE_UNFIX(word) : word;
}

double NearestAllowed(const SANE_Option_Descriptor& option, double value) {
    if (option.constraint_type == SANE_CONSTRAINT_RANGE) {
        const SANE_Range& range = *option.constraint.range;
        return std::clamp(value, FromWord(option, range.min), FromWord(option, range.max));
    }
    if (option.constraint_type != SANE_CONSTRAINT_WORD_LIST || option.constraint.word_list[0] < 1)
        return value;
    double nearest = FromWord(option, option.constraint.word_list[1]);
    for (SANE_Word i = 2; i <= option.constraint.word_list[0]; ++i) {
        const double allowed = FromWord(option, option.constraint.word_list[i]);
        if (std::abs(allowed - value) < std::abs(nearest - value)) nearest = allowed;
    }
    return nearest;
}

}  // namespace

SaneOptions::Option SaneOptions::Find(std::string_view name) const {
    // Descriptors may move whenever an option is set, so they are looked up each time.
    SANE_Int count = 0;
    if (sane_control_option(device_, 0, SANE_ACTION_GET_VALUE, &count, nullptr) != SANE_STATUS_GOOD)
        return {};
    for (SANE_Int index = 1; index < count; ++index) {
        const SANE_Option_Descriptor* option = sane_get_option_descriptor(device_, index);
        if (option == nullptr || option->name == nullptr || name != option->name) continue;
        const bool usable = SANE_OPTION_IS_ACTIVE(option->cap) && SANE_OPTION_IS_SETTABLE(option->cap);
        return usable ? Option{index, option} : Option{};
    }
    return {};
}

std::vector<std::string> SaneOptions::Choices(std::string_view name) const {
    std::vector<std::string> choices;
    const Option option = Find(name);
    if (!option.Exists() || option.descriptor->constraint_type != SANE_CONSTRAINT_STRING_LIST) return choices;
    for (const SANE_String_Const* text = option.descriptor->constraint.string_list; *text != nullptr; ++text)
        choices.emplace_back(*text);
    return choices;
}

void SaneOptions::Set(std::string_view name, const std::string& value) const {
    const Option option = Find(name);
    if (!option.Exists()) return;
    if (option.descriptor->type == SANE_TYPE_STRING) {
        std::vector<char> text(static_cast<std::size_t>(std::max(option.descriptor->size, 1)), '\0');
        std::memcpy(text.data(), value.data(), std::min(value.size(), text.size() - 1));
        Write(option, text.data());
    } else if (option.descriptor->type == SANE_TYPE_BOOL) {
        SANE_Bool word = value == "yes" ? SANE_TRUE : SANE_FALSE;
        Write(option, &word);
    } else if (const auto number = ParseNumber(value); number && IsNumber(*option.descriptor)) {
        WriteWord(option, *number);
    }
}

void SaneOptions::SetNumber(std::string_view name, double value) const {
    const Option option = Find(name);
    if (option.Exists() && IsNumber(*option.descriptor)) WriteWord(option, value);
}

void SaneOptions::SetToMinimum(std::string_view name) const {
    const Option option = Find(name);
    if (option.Exists() && IsNumber(*option.descriptor) &&
        option.descriptor->constraint_type != SANE_CONSTRAINT_NONE)
        WriteWord(option, std::numeric_limits<SANE_Word>::min());
}

void SaneOptions::SetToMaximum(std::string_view name) const {
    const Option option = Find(name);
    if (option.Exists() && IsNumber(*option.descriptor) &&
        option.descriptor->constraint_type != SANE_CONSTRAINT_NONE)
        WriteWord(option, std::numeric_limits<SANE_Word>::max());
}

void SaneOptions::WriteWord(const Option& option, double value) const {
    const double allowed = NearestAllowed(*option.descriptor, value);
    SANE_Word word = option.descriptor->type == SANE_TYPE_FIXED ? SANE_FIX(allowed) : RoundToWhole(allowed);
    Write(option, &word);
}

void SaneOptions::Write(const Option& option, void* value) const {
    const SANE_Status status =
        sane_control_option(device_, option.index, SANE_ACTION_SET_VALUE, value, nullptr);
    // A device may refuse a value that another setting rules out; it then keeps the one it has.
    if (status != SANE_STATUS_INVAL && status != SANE_STATUS_UNSUPPORTED) CheckSane(status);
}

}  // namespace lumarin::sane
