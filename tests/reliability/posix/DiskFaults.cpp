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

enum class Use : char { Read = 'R', Make = 'M', Grow = 'G', Change = 'C' };

struct Rule {
    std::string_view counted;  ///< the uses
    int error;  ///< of the chosen call and of all later ones; 0 when it is about that call only
};
/// By kind.
constexpr Rule Rules[] = {{"MGC", 0}, {"MG", ENOSPC}, {"MGC", EROFS}, {"RMGC", EACCES},
                          {"R", 0},   {"MGC", 0},     {"MGC", 0}};

struct State {
    char folder[PATH_MAX] = "";
    char locked[PATH_MAX] = "";
    Kind kind = Kind::None;
    int call = 0;
    int calls = 0;
    bool paused = false;
};
State state;

/// What is to happen to a call. One that comes to its middle writes half where it writes at all.
enum class Fate { Well, Error, Middle };

/// Without the ending of a file that is just being written: that is the same file.
std::string_view Stem(const char* path) {
    std::string_view stem(path);
    if (stem.ends_with(".part")) stem.remove_suffix(5);
    return stem;
}

Fate FateOf(const char* path, Use use) {
    const Rule& rule = Rules[static_cast<int>(state.kind)];
    if (state.folder[0] == '\0' || state.paused || !std::string_view(path).starts_with(state.folder) ||
        rule.counted.find(static_cast<char>(use)) == std::string_view::npos)
        return Fate::Well;
    const bool first = ++state.calls == state.call;
    if (!first && (state.call < 1 || state.calls < state.call || rule.error == 0)) return Fate::Well;
    errno = rule.error;
    switch (state.kind) {
        case Kind::Full:
            return first && use == Use::Grow ? Fate::Middle : Fate::Error;
        case Kind::Locked:
            if (first) std::snprintf(state.locked, sizeof state.locked, "%s", path);
            return Stem(path) == Stem(state.locked) ? Fate::Error : Fate::Well;
        case Kind::Vanished:
            unlink(path);
            return Fate::Well;
        case Kind::Killed:
            kill(getpid(), SIGKILL);
            return Fate::Error;
        case Kind::KilledHalf:
            return Fate::Middle;
        default:
            return Fate::Error;
    }
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

template <class Result, class Call>
Result Does(Fate fate, Result failure, Call call) {
    if (fate == Fate::Error) return failure;
    const Result result = call();
    if (fate == Fate::Well) return result;
    if (state.kind == Kind::KilledHalf) kill(getpid(), SIGKILL);
    errno = ENOSPC;
    return failure;
}

Use UseOf(const char* path, int flags) {
    if ((flags & O_ACCMODE) == O_RDONLY) return Use::Read;
    return (flags & O_CREAT) != 0 && access(path, F_OK) != 0 ? Use::Make : Use::Change;
}

Use UseOf(const char* path, const char* mode) {
    return UseOf(path, mode[0] == 'r' && mode[1] != '+' ? O_RDONLY : O_WRONLY | O_CREAT);
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
