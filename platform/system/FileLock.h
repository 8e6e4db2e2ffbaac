#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace lumarin::platform {

/// A file that is held for one program; others find it taken. The system lets go of it when the program ends,
/// however it ends. The file itself stays.
class FileLock {
public:
    /// Creates the file when it is missing. Nothing when another program, or this one, holds it, or when it
    /// cannot be opened.
    static std::optional<FileLock> Try(const std::string& path);

    FileLock(FileLock&& other) noexcept : file_(std::exchange(other.file_, None)) {}
    FileLock& operator=(FileLock&& other) noexcept {
        std::swap(file_, other.file_);
        return *this;
    }
    ~FileLock();

private:
    static constexpr std::intptr_t None = -1;
    explicit FileLock(std::intptr_t file) : file_(file) {}

    std::intptr_t file_;  // a descriptor, a handle
};

}  // namespace lumarin::platform
