#include "platform/system/FileLock.h"

#include <windows.h>

#include "base/FileSystem.h"

namespace lumarin::platform {

std::optional<FileLock> FileLock::Try(const std::string& path) {
    // Nobody else may open it meanwhile: that is the lock.
    const HANDLE file = CreateFileW(files::ToPath(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return std::nullopt;
    return FileLock(reinterpret_cast<std::intptr_t>(file));
}

FileLock::~FileLock() {
    if (file_ != None) CloseHandle(reinterpret_cast<HANDLE>(file_));
}

}  // namespace lumarin::platform
