#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace lumarin::text {

namespace {

// Windows-1252 for the bytes 0x80 to 0x9F; the five that it leaves undefined stand for the control
// code of the same number, so every byte survives the way there and back.
constexpr std::array<char16_t, 32> UpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char16_t Replacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void AppendUtf8(std::string& out, char32_t code) {
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        tail(0);
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

/// Reads one code point (surrogates included) and advances; a malformed byte reads as U+FFFD.
char32_t NextCodePoint(std::string_view utf8, std::size_t& at) {
    const auto lead = static_cast<std::uint8_t>(utf8[at++]);
    if (lead < 0x80) return lead;
    const int more = lead >= 0xF0 && lead < 0xF5   ? 3
                     : lead >= 0xE0 && lead < 0xF0 ? 2
                     : lead >= 0xC2 && lead < 0xE0 ? 1
                                                   : 0;
    if (more == 0 || at + static_cast<std::size_t>(more) > utf8.size()) return Replacement;
    char32_t code = lead & (0x3FU >> more);
    for (int i = 0; i < more; ++i) {
        const auto next = static_cast<std::uint8_t>(utf8[at + static_cast<std::size_t>(i)]);
        if ((next & 0xC0) != 0x80) return Replacement;
        code = (code << 6) | (next & 0x3FU);
    }
    constexpr std::array<char32_t, 4> Smallest = {0, 0x80, 0x800, 0x10000};
    if (code < Smallest[static_cast<std::size_t>(more)] || code > 0x10FFFF) return Replacement;
    at += static_cast<std::size_t>(more);
    return code;
}

char16_t FoldCase(char16_t unit) {
    const bool asciiUpper = unit >= u'A' && unit <= u'Z';
    const bool latinUpper = unit >= 0xC0 && unit <= 0xDE && unit != 0xD7;
    return asciiUpper || latinUpper ? static_cast<char16_t>(unit + 0x20) : unit;
}

std::u16string Folded(std::string_view utf8) {
    std::u16string units = ToUtf16(utf8);
    std::transform(units.begin(), units.end(), units.begin(), FoldCase);
    return units;
}

/// Everything beyond Latin-1 counts as a letter, except dashes, quotation marks and their like.
bool IsLetter(char16_t folded) {
    const bool punctuation = folded == 0xD7 || folded == 0xF7 || (folded >= 0x2000 && folded <= 0x206F);
    return (folded >= u'a' && folded <= u'z') || (folded >= 0xC0 && !punctuation);
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

}  // namespace

std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t at = text.find(separator); at != std::string_view::npos;
         at = text.find(separator, start)) {
        parts.emplace_back(text.substr(start, at - start));
        start = at + 1;
    }
    parts.emplace_back(text.substr(start));
    return parts;
}

std::string ReplaceAll(std::string text, std::string_view what, std::string_view with) {
    if (what.empty()) return text;
    std::string replaced;
    std::size_t copied = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, copied)) {
        replaced.append(text, copied, at - copied).append(with);
        copied = at + what.size();
    }
    return replaced.append(text, copied);
}

std::string_view TrimLeft(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    return text;
}

std::string_view Trim(std::string_view text) {
    text = TrimLeft(text);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

std::string LowerAscii(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) c = LowerAscii(c);
    return lower;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return LowerAscii(one) == LowerAscii(other); });
}

bool EndsWithIgnoringCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() &&
           EqualsIgnoringCase(text.substr(text.size() - ending.size()), ending);
}

bool ContainsIgnoringCase(std::string_view text, std::string_view part) {
    return Folded(text).find(Folded(part)) != std::u16string::npos;
}

bool ContainsWords(std::string_view text, std::string_view words) {
    const std::u16string whole = Folded(text);
    const std::u16string part = Folded(words);
    if (part.empty()) return false;
    for (std::size_t at = whole.find(part); at != std::u16string::npos; at = whole.find(part, at + 1)) {
        const std::size_t end = at + part.size();
        const bool runsOn = (at > 0 && IsLetter(whole[at - 1]) && IsLetter(part.front())) ||
                            (end < whole.size() && IsLetter(whole[end]) && IsLetter(part.back()));
        if (!runsOn) return true;
    }
    return false;
}

std::string UpToLastSeparator(std::string_view path) {
    return std::string(path.substr(0, path.find_last_of("\\/") + 1));
}

std::string AfterLastSeparator(std::string_view path) {
    return std::string(path.substr(path.find_last_of("\\/") + 1));
}

std::u16string ToUtf16(std::string_view utf8) {
    std::u16string units;
    units.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t code = NextCodePoint(utf8, at);
        if (code < 0x10000) {
            units += static_cast<char16_t>(code);
        } else {
            units += static_cast<char16_t>(0xD7C0 + (code >> 10));
            units += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
        }
    }
    return units;
}

std::string FromUtf16(std::u16string_view utf16) {
    std::string utf8;
    utf8.reserve(utf16.size());
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        char32_t code = utf16[i];
        if (IsHighSurrogate(code) && i + 1 < utf16.size() && IsLowSurrogate(utf16[i + 1]))
            code = 0x10000 + ((code - 0xD800) << 10) + (utf16[++i] - 0xDC00U);
        AppendUtf8(utf8, code);
    }
    return utf8;
}

std::string ToCodePage(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t code = NextCodePoint(utf8, at);
        if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) {
            bytes += static_cast<char>(code);
            continue;
        }
        const auto found = std::find(UpperControls.begin(), UpperControls.end(), code);
        bytes +=
            found == UpperControls.end() ? '?' : static_cast<char>(0x80 + (found - UpperControls.begin()));
    }
    return bytes;
}

std::string FromCodePage(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        AppendUtf8(utf8, byte >= 0x80 && byte <= 0x9F ? UpperControls[byte - 0x80U] : byte);
    }
    return utf8;
}

}  // namespace lumarin::text
