#pragma once

#include <optional>
#include <string>

/// What a settings file says. One that starts with the byte order mark of UTF-8 is read and written as UTF-8,
/// any other in the code page.
namespace lumarin::settings {

/// The text of a key's value; nothing when section or key is missing.
std::optional<std::string> FindValue(const std::string& bytes, const std::string& section,
                                     const std::string& key);

/// A value without line breaks, which would make lines of their own.
std::string OneLine(const std::string& value);

/// The file's bytes with one value set, as one line, and every other line as it was.
std::string WithValue(const std::string& bytes, const std::string& section, const std::string& key,
                      const std::string& value);

}  // namespace lumarin::settings
