#include "platform/system/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace lumarin::platform {

std::optional<FileLock> FileLock::Try(const std::string& path) {
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0) return std::nullopt;
    FileLock lock(file);
    if (flock(file, LOCK_EX | LOCK_NB) != 0) return std::nullopt;
    return lock;
}

FileLock::~FileLock() {
    if (file_ != None) close(static_cast<int>(file_));
}

}  // namespace lumarin::platform
