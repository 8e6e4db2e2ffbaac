#include "entry/PlainSettings.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "base/Rewrite.h"
#include "base/Text.h"
#include "entry/SettingsText.h"

namespace lumarin {

namespace {

/// The platform reads values into a buffer of 250 characters, the last of which ends the text.
constexpr std::size_t MaximumValueLength = 249;

/// Nothing when the file cannot be read: a setting then has its default.
std::optional<std::string> FileBytes(const std::string& file) {
    try {
        return files::FileExists(file) ? std::optional(files::ReadRewritten(file)) : std::nullopt;
    } catch (const Error&) {
        return std::nullopt;
    }
}

std::optional<std::string> Value(const std::string& file, const std::string& section,
                                 const std::string& key) {
    const auto bytes = FileBytes(file);
    const auto value = bytes ? settings::FindValue(*bytes, section, key) : std::nullopt;
    if (!value) return std::nullopt;
    std::u16string characters = text::ToUtf16(*value);
    characters.resize(std::min(characters.size(), MaximumValueLength));
    return text::FromUtf16(characters);
}

/// A whole number as the platform reads it: behind the sign "0x", "0o" and "0b" announce other bases.
std::int32_t IntegerOf(std::string_view value) {
    const bool negative = value.starts_with('-');
    const std::string_view digits = value.substr(negative || value.starts_with('+') ? 1 : 0);
    for (const auto& [mark, base] : {std::pair{"0x", 16}, {"0o", 8}, {"0b", 2}}) {
        if (!digits.starts_with(mark)) continue;
        std::uint32_t number = 0;
        std::from_chars(digits.data() + 2, digits.data() + digits.size(), number, base);
        return static_cast<std::int32_t>(negative ? 0U - number : number);
    }
    return LeadingInteger(value);
}

}  // namespace

std::string PlainSettings::ReadText(const std::string& file, const std::string& section,
                                    const std::string& key, const std::string& fallback) const {
    return Value(file, section, key).value_or(fallback);
}

std::int32_t PlainSettings::ReadInteger(const std::string& file, const std::string& section,
                                        const std::string& key, std::int32_t fallback) const {
    const auto value = Value(file, section, key);
    return value && !value->empty() ? IntegerOf(*value) : fallback;
}

bool PlainSettings::WriteText(const std::string& file, const std::string& section, const std::string& key,
                              const std::string& value) const noexcept {
    try {
        // A file that is there but cannot be read must not be replaced by one with a single setting.
        const std::string bytes = files::FileExists(file) ? files::ReadRewritten(file) : std::string();
        files::Rewrite(file, settings::WithValue(bytes, section, key, value));
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace lumarin
