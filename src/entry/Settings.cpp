#include "entry/Settings.h"

#include <algorithm>
#include <optional>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "base/Rewrite.h"
#include "base/Text.h"
#include "entry/SettingsText.h"

namespace lumarin::settings {

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
    const auto value = bytes ? FindValue(*bytes, section, key) : std::nullopt;
    if (!value) return std::nullopt;
    std::u16string characters = text::ToUtf16(*value);
    characters.resize(std::min(characters.size(), MaximumValueLength));
    return text::FromUtf16(characters);
}

}  // namespace

std::string ReadText(const std::string& file, const std::string& section, const std::string& key,
                     const std::string& fallback) {
    return Value(file, section, key).value_or(fallback);
}

std::int32_t ReadInteger(const std::string& file, const std::string& section, const std::string& key,
                         std::int32_t fallback) {
    const auto value = Value(file, section, key);
    return value && !value->empty() ? LeadingInteger(*value) : fallback;
}

bool WriteText(const std::string& file, const std::string& section, const std::string& key,
               const std::string& value) noexcept {
    try {
        // A file that is there but cannot be read must not be replaced by one with a single setting.
        const std::string bytes = files::FileExists(file) ? files::ReadRewritten(file) : std::string();
        files::Rewrite(file, WithValue(bytes, section, key, value));
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace lumarin::settings
