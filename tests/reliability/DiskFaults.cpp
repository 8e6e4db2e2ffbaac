#include "reliability/DiskFaults.h"

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
#include <cstdlib>
#include <string_view>

// The C library's functions are replaced in this program by ones that count and then call it, under the same
// names: the libraries below, too, find these. They run inside of anything, so they do nothing clever.

namespace lumarin::disk_faults {

namespace {

enum class Use { Read, Make, Grow, Change };

struct State {
    char folder[PATH_MAX] = "";
    char locked[PATH_MAX] = "";
    Kind kind = Kind::None;
    int call = 0;
    int calls = 0;
    bool paused = false;
};
State state;

/// What is to happen to a call.
enum class Fate { Well, Error, Half, KillBehind };

/// Without the ending of a file that is just being written: that is the same file.
std::string_view Stem(const char* path) {
    std::string_view stem(path);
    if (stem.ends_with(".part")) stem.remove_suffix(5);
    return stem;
}

bool Counts(Use use) {
    switch (state.kind) {
        case Kind::Full:
            return use == Use::Make || use == Use::Grow;
        case Kind::Locked:
            return true;
        case Kind::Vanished:
            return use == Use::Read;
        default:
            return use != Use::Read;
    }
}

Fate Strike(const char* path, Use use) {
    const bool first = state.calls == state.call;
    switch (state.kind) {
        case Kind::None:
            return Fate::Well;
        case Kind::Full:
            errno = ENOSPC;
            return first && use == Use::Grow ? Fate::Half : Fate::Error;
        case Kind::ReadOnly:
            errno = EROFS;
            return Fate::Error;
        case Kind::Locked:
            if (first) std::snprintf(state.locked, sizeof state.locked, "%s", path);
            errno = EACCES;
            return Stem(path) == Stem(state.locked) ? Fate::Error : Fate::Well;
        case Kind::Vanished:
            if (first) unlink(path);
            return Fate::Well;
        case Kind::Killed:
            kill(getpid(), SIGKILL);
            return Fate::Error;
        case Kind::KilledHalf:
            return use == Use::Grow ? Fate::Half : Fate::KillBehind;
    }
    return Fate::Well;
}

Fate FateOf(const char* path, Use use) {
    if (state.folder[0] == '\0' || state.paused || !std::string_view(path).starts_with(state.folder) ||
        !Counts(use))
        return Fate::Well;
    ++state.calls;
    const bool later = state.kind == Kind::Full || state.kind == Kind::ReadOnly || state.kind == Kind::Locked;
    if (state.call < 1 || state.calls < state.call || (state.calls > state.call && !later)) return Fate::Well;
    return Strike(path, use);
}

Fate FateOf(int file, Use use) {
    if (state.folder[0] == '\0') return Fate::Well;
    char link[64], path[PATH_MAX];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const ssize_t length = readlink(link, path, sizeof path - 1);
    if (length < 0) return Fate::Well;
    path[length] = '\0';
    return FateOf(path, use);
}

/// The C library's own function of this name.
template <class Function>
Function* Real(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

template <class Result, class Call>
Result Does(Fate fate, Result failure, Call call) {
    if (fate == Fate::Error) return failure;
    const Result result = call();
    if (fate == Fate::KillBehind) kill(getpid(), SIGKILL);
    return result;
}

/// Writing that may stop in the middle: `write` takes how many bytes to write.
template <class Write>
ssize_t Grows(Fate fate, std::size_t count, Write write) {
    if (fate == Fate::Error) return -1;
    const ssize_t written = write(fate == Fate::Half ? count / 2 : count);
    if (fate != Fate::Half) return written;
    if (state.kind == Kind::KilledHalf) kill(getpid(), SIGKILL);
    errno = ENOSPC;
    return -1;
}

Use UseOf(const char* path, int flags) {
    if ((flags & O_ACCMODE) == O_RDONLY) return Use::Read;
    return (flags & O_CREAT) != 0 && access(path, F_OK) != 0 ? Use::Make : Use::Change;
}

Use UseOf(const char* path, const char* mode) {
    return mode[0] == 'r' && mode[1] != '+' ? Use::Read : UseOf(path, O_WRONLY | O_CREAT);
}

}  // namespace

void Begin(const std::string& folder, Kind kind, int call) {
    state = {};
    state.kind = kind;
    state.call = call;
    std::snprintf(state.folder, sizeof state.folder, "%s", folder.c_str());
}

void Pause(bool paused) { state.paused = paused; }

int End() {
    const int calls = state.calls;
    state = {};
    return calls;
}

}  // namespace lumarin::disk_faults

using namespace lumarin::disk_faults;

#define REAL(name)                                      \
    ([] {                                               \
        static auto* const real = Real(&::name, #name); \
        return real;                                    \
    }())

extern "C" {

// Parameters and arguments come with their parentheses. NOLINTBEGIN(bugprone-macro-parentheses)
#define REPLACE_OPEN(name)                                                                                \
    int name(const char* path, int flags, ...) {                                                          \
        va_list rest;                                                                                     \
        va_start(rest, flags);                                                                            \
        const auto mode = static_cast<mode_t>(va_arg(rest, int));                                         \
        va_end(rest);                                                                                     \
        return Does(FateOf(path, UseOf(path, flags)), -1, [&] { return REAL(name)(path, flags, mode); }); \
    }
#define REPLACE(result, name, failure, fate, parameters, arguments)               \
    result name parameters {                                                      \
        return Does<result>(fate, failure, [&] { return REAL(name) arguments; }); \
    }
// NOLINTEND(bugprone-macro-parentheses)

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

ssize_t write(int file, const void* bytes, size_t count) {
    return Grows(FateOf(file, Use::Grow), count, [&](size_t n) { return REAL(write)(file, bytes, n); });
}
ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t at) {
    return Grows(FateOf(file, Use::Grow), count,
                 [&](size_t n) { return REAL(pwrite64)(file, bytes, n, at); });
}
ssize_t writev(int file, const iovec* parts, int count) {
    return Grows(FateOf(file, Use::Grow), static_cast<size_t>(count),
                 [&](size_t n) { return n == 0 ? 0 : REAL(writev)(file, parts, static_cast<int>(n)); });
}
ssize_t sendfile(int to, int from, off_t* at, size_t count) {
    return Grows(FateOf(to, Use::Grow), count, [&](size_t n) { return REAL(sendfile)(to, from, at, n); });
}
size_t fwrite(const void* bytes, size_t size, size_t count, FILE* file) {
    const ssize_t written = Grows(FateOf(fileno(file), Use::Grow), count, [&](size_t n) {
        const size_t done = REAL(fwrite)(bytes, size, n, file);
        if (n < count) fflush(file);
        return static_cast<ssize_t>(done);
    });
    return written < 0 ? 0 : static_cast<size_t>(written);
}
int fclose(FILE* file) {
    // What waits in memory is written by this.
    const bool writes = (fcntl(fileno(file), F_GETFL) & O_ACCMODE) != O_RDONLY;
    const Fate fate = writes ? FateOf(fileno(file), Use::Grow) : Fate::Well;
    const int error = errno;
    const int result = REAL(fclose)(file);
    if (state.kind == Kind::KilledHalf && fate == Fate::Half) kill(getpid(), SIGKILL);
    if (fate == Fate::Well) return result;
    errno = error;
    return EOF;
}
int fsync(int) { return 0; }
int fdatasync(int) { return 0; }
}
