#include "entry/SettingsText.h"

#include <string_view>
#include <vector>

#include "base/Text.h"

namespace lumarin::settings {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

bool IsUtf8(std::string_view bytes) { return bytes.starts_with(Utf8Mark); }

/// A text as it stands in this file.
std::string Encoded(std::string_view file, const std::string& text) {
    return IsUtf8(file) ? text : text::ToCodePage(text);
}

/// A file's lines, each with its end; the last one may have none. The mark in front of them is not a line.
std::vector<std::string_view> SplitLines(std::string_view bytes) {
    std::vector<std::string_view> lines;
    if (IsUtf8(bytes)) bytes.remove_prefix(Utf8Mark.size());
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

/// How new lines are ended: as the file does, and as the platform does where that cannot be known.
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

}  // namespace

std::optional<std::string> FindValue(const std::string& bytes, const std::string& section,
                                     const std::string& key) {
    const std::vector<std::string_view> lines = SplitLines(bytes);
    const std::string name = Encoded(bytes, key);
    const Place place = FindPlace(lines, Encoded(bytes, section), name);
    if (!place.line) return std::nullopt;
    const std::string_view value = WithoutQuotes(*ValueOf(lines[*place.line], name));
    return IsUtf8(bytes) ? std::string(value) : text::FromCodePage(value);
}

std::string OneLine(const std::string& value) {
    return text::ReplaceAll(text::ReplaceAll(value, "\r", ""), "\n", " ");
}

std::string WithValue(const std::string& bytes, const std::string& section, const std::string& key,
                      const std::string& value) {
    const std::vector<std::string_view> lines = SplitLines(bytes);
    const Place place = FindPlace(lines, Encoded(bytes, section), Encoded(bytes, key));
    const std::string end(LineEnd(bytes));
    const bool endKept = place.line && !EndOf(lines[*place.line]).empty();
    const std::string setting = Encoded(bytes, key) + "=" + Encoded(bytes, OneLine(value)) +
                                (endKept ? std::string(EndOf(lines[*place.line])) : end);
    const std::size_t at = place.line ? *place.line : place.hasSection ? place.insertAt : lines.size();

    std::string result;
    for (std::size_t i = 0; i < at; ++i) result += lines[i];
    if (!result.empty() && result.back() != '\n') result += end;
    if (!place.hasSection) result += "[" + Encoded(bytes, section) + "]" + end;
    result += setting;
    for (std::size_t i = place.line ? at + 1 : at; i < lines.size(); ++i) result += lines[i];
    return IsUtf8(bytes) ? std::string(Utf8Mark) + result : result;
}

}  // namespace lumarin::settings
