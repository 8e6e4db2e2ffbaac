#include "reliability/DiskFaults.h"
#include "reliability/Fate.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>
#include <csignal>

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>

// The C library's functions are replaced in this program by ones that count and then call it, under the same
// names: the libraries below, too, find these. They run inside of anything, so they do nothing clever.

namespace lumarin::disk_faults {

namespace {

Fate FateOf(int file, Use use) {
    if (!IsOn()) return Fate::Well;
    char link[64], path[PATH_MAX];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const ssize_t length = readlink(link, path, sizeof path - 1);
    if (length < 0) return Fate::Well;
    path[length] = '\0';
    return FateOf(path, use);
}

Use UseOf(const char* path, int flags) {
    if ((flags & O_ACCMODE) == O_RDONLY) return Use::Read;
    return (flags & O_CREAT) != 0 && access(path, F_OK) != 0 ? Use::Make : Use::Change;
}

Use UseOf(const char* path, const char* mode) {
    return UseOf(path, mode[0] == 'r' && mode[1] != '+' ? O_RDONLY : O_WRONLY | O_CREAT);
}

}  // namespace

const int Stride = 1;

void Prepare() {}

void SetReason(Reason reason) {
    constexpr int Numbers[] = {0, ENOSPC, EROFS, EACCES, EIO};
    errno = Numbers[static_cast<int>(reason)];
}

void RemoveFile(std::string_view path) { unlink(path.data()); }

void KillThisProgram() { kill(getpid(), SIGKILL); }

}  // namespace lumarin::disk_faults

using namespace lumarin::disk_faults;

// Parameters and arguments come with their parentheses. NOLINTBEGIN(bugprone-macro-parentheses)

/// The C library's own function of this name.
#define REAL(name)                                                                              \
    ([] {                                                                                       \
        static auto* const real = reinterpret_cast<decltype(&::name)>(dlsym(RTLD_NEXT, #name)); \
        return real;                                                                            \
    }())
#define REPLACE(result, name, failure, fate, parameters, arguments)               \
    result name parameters {                                                      \
        return Does<result>(fate, failure, [&] { return REAL(name) arguments; }); \
    }
#define REPLACE_WRITING(name, file, count, parameters, arguments)             \
    ssize_t name parameters {                                                 \
        const Fate fate = FateOf(file, Use::Grow);                            \
        if (fate == Fate::Middle) count /= 2;                                 \
        return Does<ssize_t>(fate, -1, [&] { return REAL(name) arguments; }); \
    }
#define REPLACE_OPEN(name)                                                                                \
    int name(const char* path, int flags, ...) {                                                          \
        va_list rest;                                                                                     \
        va_start(rest, flags);                                                                            \
        const auto mode = static_cast<mode_t>(va_arg(rest, int));                                         \
        va_end(rest);                                                                                     \
        return Does(FateOf(path, UseOf(path, flags)), -1, [&] { return REAL(name)(path, flags, mode); }); \
    }

// NOLINTEND(bugprone-macro-parentheses)

extern "C" {

REPLACE_OPEN(open)
REPLACE_OPEN(open64)
REPLACE(FILE*, fopen, nullptr, FateOf(path, UseOf(path, mode)), (const char* path, const char* mode),
        (path, mode))
REPLACE(FILE*, fopen64, nullptr, FateOf(path, UseOf(path, mode)), (const char* path, const char* mode),
        (path, mode))
REPLACE(int, rename, -1, FateOf(to, Use::Change), (const char* from, const char* to), (from, to))
REPLACE(int, remove, -1, FateOf(path, Use::Change), (const char* path), (path))
REPLACE(int, unlink, -1, FateOf(path, Use::Change), (const char* path), (path))
REPLACE(int, mkdir, -1, FateOf(path, Use::Make), (const char* path, mode_t mode), (path, mode))
REPLACE(int, ftruncate64, -1, FateOf(file, Use::Change), (int file, off64_t length) noexcept, (file, length))
REPLACE(int, truncate, -1, FateOf(path, Use::Change), (const char* path, off_t length) noexcept,
        (path, length))
REPLACE(ssize_t, read, -1, FateOf(file, Use::Take), (int file, void* bytes, size_t count),
        (file, bytes, count))
REPLACE(ssize_t, pread64, -1, FateOf(file, Use::Take), (int file, void* bytes, size_t count, off64_t at),
        (file, bytes, count, at))
REPLACE(size_t, fread, 0, FateOf(fileno(file), Use::Take),
        (void* bytes, size_t size, size_t count, FILE* file), (bytes, size, count, file))
REPLACE_WRITING(write, file, count, (int file, const void* bytes, size_t count), (file, bytes, count))
REPLACE_WRITING(pwrite64, file, count, (int file, const void* bytes, size_t count, off64_t at),
                (file, bytes, count, at))
REPLACE_WRITING(writev, file, count, (int file, const iovec* parts, int count), (file, parts, count))
REPLACE_WRITING(sendfile, to, count, (int to, int from, off_t* at, size_t count), (to, from, at, count))

size_t fwrite(const void* bytes, size_t size, size_t count, FILE* file) {
    const Fate fate = FateOf(fileno(file), Use::Grow);
    return Does<size_t>(fate, 0, [&] {
        const size_t written = REAL(fwrite)(bytes, size, fate == Fate::Middle ? count / 2 : count, file);
        if (fate == Fate::Middle) fflush(file);
        return written;
    });
}
int fclose(FILE* file) {
    // What waits in memory is written by this.
    const bool writes = (fcntl(fileno(file), F_GETFL) & O_ACCMODE) != O_RDONLY;
    const Fate fate = writes ? FateOf(fileno(file), Use::Grow) : Fate::Well;
    const int error = errno, result = REAL(fclose)(file);
    if (fate == Fate::Error) errno = error;
    return Does(fate, EOF, [&] { return result; });
}
int fsync(int) { return 0; }
int fdatasync(int) { return 0; }
}
