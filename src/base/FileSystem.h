#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// Between texts and the standard library's paths, whatever the process's code page is. For the file layer
/// and for those who need more of the standard library than `files` has.
namespace lumarin::files {

/// A text that is not UTF-8 names a file that is not there. Where paths are limited in their length, a long
/// one takes the form that is not.
std::filesystem::path ToPath(std::string_view utf8);

std::string ToUtf8(const std::filesystem::path& path);

/// The same for a library that takes paths in UTF-8.
inline std::string LibraryPath(std::string_view utf8) { return ToUtf8(ToPath(utf8)); }

/// The whole path, from the program's current folder where it is not one, without "." and "..". Never in the
/// form for long paths.
std::string Absolute(std::string_view utf8);

/// Why a stream could not be opened, read or written. `errno` is 0 before the attempt.
std::string LastReason();

}  // namespace lumarin::files
