#pragma once

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>

/// What the sources of the file layer share; everybody else works with `files`.
namespace lumarin::files {

inline std::filesystem::path ToPath(std::string_view utf8) {
    return {reinterpret_cast<const char8_t*>(utf8.data()),
            reinterpret_cast<const char8_t*>(utf8.data() + utf8.size())};
}

/// Why a stream could not be opened, read or written. `errno` is 0 before the attempt.
inline std::string LastReason() { return errno != 0 ? std::strerror(errno) : "input/output error"; }

}  // namespace lumarin::files
