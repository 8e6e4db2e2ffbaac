#pragma once

#include <cstdint>
#include <string>

/// The component's settings: INI files in the platform's single-byte code page, or in UTF-8 where the file
/// says so, with the rules of the platform's private-profile operations. Section and key names are not
/// case-sensitive; blanks around keys and values are dropped, as is one pair of quotes around a value.
namespace lumarin::settings {

/// The first 249 characters of the value, or `fallback` when file, section or key is missing.
std::string ReadText(const std::string& file, const std::string& section, const std::string& key,
                     const std::string& fallback);

/// The value's leading whole number (0 when it does not start with one), or `fallback` when it is missing or
/// empty.
std::int32_t ReadInteger(const std::string& file, const std::string& section, const std::string& key,
                         std::int32_t fallback);

/// Sets one value and leaves every other line as it is, and the file its owner, mode and links
/// (`files::Rewrite`). False when the file could not be written.
bool WriteText(const std::string& file, const std::string& section, const std::string& key,
               const std::string& value) noexcept;

}  // namespace lumarin::settings
