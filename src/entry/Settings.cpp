#include "entry/Settings.h"

#include <optional>
#include <string_view>
#include <vector>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "base/Text.h"

namespace lumarin::settings {

namespace {

/// The platform reads values into a buffer of 250 characters, the last of which ends the text.
constexpr std::size_t MaximumValueLength = 249;

/// A file's lines, each with its end; the last one may have none.
std::vector<std::string_view> SplitLines(std::string_view bytes) {
    std::vector<std::string_view> lines;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        const std::size_t length = end == std::string_view::npos ? bytes.size() : end + 1;
        lines.push_back(bytes.substr(0, length));
        bytes.remove_prefix(length);
    }
    return lines;
}

/// The end of one line; "" when it has none.
std::string_view EndOf(std::string_view line) {
    const std::size_t length = line.find_last_not_of("\r\n");
    return line.substr(length == std::string_view::npos ? 0 : length + 1);
}

/// How new lines are ended: as the file does, and as the platform does where there is no telling.
std::string_view LineEnd(std::string_view bytes) {
    return bytes.find('\n') != std::string_view::npos && bytes.find("\r\n") == std::string_view::npos
               ? "\n"
               : "\r\n";
}

std::optional<std::string_view> SectionName(std::string_view line) {
    line = text::Trim(line);
    if (line.empty() || line.front() != '[') return std::nullopt;
    const std::size_t end = line.find(']');
    return end == std::string_view::npos ? std::nullopt : std::optional(text::Trim(line.substr(1, end - 1)));
}

/// The value's text when the line sets this key.
std::optional<std::string_view> ValueOf(std::string_view line, std::string_view key) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || text::Trim(line).front() == ';') return std::nullopt;
    if (!text::EqualsIgnoringCase(text::Trim(line.substr(0, equals)), key)) return std::nullopt;
    return text::Trim(line.substr(equals + 1));
}

std::string_view WithoutQuotes(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.front() == value.back();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

/// Where a key stands in the file, or where a new line for it belongs.
struct Place {
    bool hasSection = false;
    std::optional<std::size_t> line;  ///< the line that sets the key
    std::size_t insertAt = 0;         ///< behind the section's last line that is not blank
};

Place FindPlace(const std::vector<std::string_view>& lines, std::string_view section, std::string_view key) {
    Place place;
    bool inside = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (const auto name = SectionName(lines[i])) {
            if (place.hasSection) break;
            inside = text::EqualsIgnoringCase(*name, section);
            place.hasSection = inside;
        }
        if (!inside) continue;
        if (!text::Trim(lines[i]).empty()) place.insertAt = i + 1;
        if (ValueOf(lines[i], key)) {
            place.line = i;
            break;
        }
    }
    return place;
}

/// Nothing when the file cannot be read: a setting then has its default.
std::optional<std::string> FileBytes(const std::string& file) {
    try {
        return files::FileExists(file) ? std::optional(files::ReadAll(file)) : std::nullopt;
    } catch (const Error&) {
        return std::nullopt;
    }
}

std::optional<std::string> Value(const std::string& file, const std::string& section,
                                 const std::string& key) {
    const auto bytes = FileBytes(file);
    std::string value;
    if (!bytes || !FindValue(*bytes, section, key, value)) return std::nullopt;
    return value.substr(0, MaximumValueLength);
}

}  // namespace

bool FindValue(const std::string& bytes, const std::string& section, const std::string& key,
               std::string& value) {
    const std::vector<std::string_view> lines = SplitLines(bytes);
    const Place place = FindPlace(lines, text::ToCodePage(section), text::ToCodePage(key));
    if (!place.line) return false;
    value = WithoutQuotes(*ValueOf(lines[*place.line], text::ToCodePage(key)));
    return true;
}

std::string WithValue(const std::string& bytes, const std::string& section, const std::string& key,
                      const std::string& value) {
    const std::vector<std::string_view> lines = SplitLines(bytes);
    const Place place = FindPlace(lines, text::ToCodePage(section), text::ToCodePage(key));
    const std::string end(LineEnd(bytes));
    // A line break inside a value would make lines of its own.
    const std::string oneLine =
        text::ReplaceAll(text::ReplaceAll(text::ToCodePage(value), "\r", ""), "\n", " ");
    const bool endKept = place.line && !EndOf(lines[*place.line]).empty();
    const std::string setting =
        text::ToCodePage(key) + "=" + oneLine + (endKept ? std::string(EndOf(lines[*place.line])) : end);
    const std::size_t at = place.line ? *place.line : place.hasSection ? place.insertAt : lines.size();

    std::string result;
    for (std::size_t i = 0; i < at; ++i) result += lines[i];
    if (!result.empty() && result.back() != '\n') result += end;
    if (!place.hasSection) result += "[" + text::ToCodePage(section) + "]" + end;
    result += setting;
    for (std::size_t i = place.line ? at + 1 : at; i < lines.size(); ++i) result += lines[i];
    return result;
}

std::string ReadText(const std::string& file, const std::string& section, const std::string& key,
                     const std::string& fallback) {
    const auto value = Value(file, section, key);
    return value ? text::FromCodePage(*value) : fallback;
}

std::int32_t ReadInteger(const std::string& file, const std::string& section, const std::string& key,
                         std::int32_t fallback) {
    const auto value = Value(file, section, key);
    return value ? LeadingInteger(*value) : fallback;
}

bool WriteText(const std::string& file, const std::string& section, const std::string& key,
               const std::string& value) noexcept {
    try {
        // A file that is there but cannot be read must not be replaced by one with a single setting.
        const std::string bytes = files::FileExists(file) ? files::ReadAll(file) : std::string();
        files::WriteWhole(file, WithValue(bytes, section, key, value));
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace lumarin::settings
