#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Text helpers. All texts are UTF-8 unless a name says otherwise; an unpaired UTF-16 surrogate is
/// carried as its three-byte form so that it survives the way there and back.
namespace lumarin::text {

std::vector<std::string> Split(std::string_view text, char separator);
std::string ReplaceAll(std::string text, std::string_view what, std::string_view with);
std::string_view TrimLeft(std::string_view text);
std::string_view Trim(std::string_view text);

/// Lower case of the ASCII letters; every other byte stays.
std::string LowerAscii(std::string_view text);
bool EqualsIgnoringCase(std::string_view left, std::string_view right);
bool EndsWithIgnoringCase(std::string_view text, std::string_view ending);

/// Substring test in which letters compare regardless of case (ASCII and the Latin-1 letters).
bool ContainsIgnoringCase(std::string_view text, std::string_view part);

/// The same test for whole words: no letter may stand right before or behind them ("pool 2.jpg" and
/// "100123_pool.jpg" contain "Pool", "poolside.jpg" does not).
bool ContainsWords(std::string_view text, std::string_view words);

/// A path's two parts: its folder with the last separator ("\" or "/"), "" when there is none; and the name
/// behind it.
std::string UpToLastSeparator(std::string_view path);
std::string AfterLastSeparator(std::string_view path);

std::u16string ToUtf16(std::string_view utf8);
std::string FromUtf16(std::u16string_view utf16);

/// Bytes in Windows-1252, the single-byte code page of files. What it cannot hold becomes '?'.
std::string ToCodePage(std::string_view utf8);
std::string FromCodePage(std::string_view bytes);

}  // namespace lumarin::text
