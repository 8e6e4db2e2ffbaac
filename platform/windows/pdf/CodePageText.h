#pragma once

#include <string>

namespace lumarin::windows {

/// The text in the process's code page, as 8-bit functions take it. What the code page cannot hold becomes
/// '?'.
std::string ToProcessCodePage(const std::string& utf8);

/// A whole path in the process's code page. A folder that the code page cannot hold, or one that is too long,
/// goes by its short names, which it must have then; the file keeps its own name, so that a new file gets it.
/// Throws Error where there is no such path.
std::string ToProcessCodePagePath(const std::string& utf8);

}  // namespace lumarin::windows
