#pragma once

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>

/// Between texts and the standard library's paths, whatever the process's code page is. For the file layer
/// and for those who need more of the standard library than `files` has.
namespace lumarin::files {

inline std::filesystem::path ToPath(std::string_view utf8) {
    return {reinterpret_cast<const char8_t*>(utf8.data()),
            reinterpret_cast<const char8_t*>(utf8.data() + utf8.size())};
}

inline std::string ToUtf8(const std::filesystem::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

/// Why a stream could not be opened, read or written. `errno` is 0 before the attempt.
inline std::string LastReason() { return errno != 0 ? std::strerror(errno) : "input/output error"; }

}  // namespace lumarin::files
