#include "reliability/DiskFaults.h"

#include <array>

#include "base/FileSystem.h"
#include "reliability/Fate.h"

namespace lumarin::disk_faults {

namespace {

/// A path that needs no memory of its own.
class KeptPath {
public:
    void Keep(std::string_view path) { length_ = path.copy(text_.data(), text_.size()); }
    std::string_view Text() const { return {text_.data(), length_}; }

private:
    std::array<char, 4096> text_{};
    std::size_t length_ = 0;
};

struct Rule {
    std::string_view counted;  ///< the uses
    Reason reason;  ///< of the chosen call and of all later ones; none when it is about that call only
};
/// By kind.
constexpr Rule Rules[] = {{"MGC", Reason::None},    {"MG", Reason::Full},   {"MGC", Reason::ReadOnly},
                          {"RMGC", Reason::Denied}, {"T", Reason::Damaged}, {"R", Reason::None},
                          {"MGC", Reason::None},    {"MGC", Reason::None}};

struct State {
    KeptPath folder;
    KeptPath bad;  ///< the one file that is locked or damaged
    Kind kind = Kind::None;
    int call = 0;
    int calls = 0;
    bool paused = false;
};
State state;

/// Without the ending of a file that is just being written: that is the same file.
std::string_view Stem(std::string_view path) {
    if (path.ends_with(".part")) path.remove_suffix(5);
    return path;
}

}  // namespace

bool IsOn() { return !state.folder.Text().empty() && !state.paused; }

Fate FateOf(std::string_view path, Use use) {
    const Rule& rule = Rules[static_cast<int>(state.kind)];
    if (!IsOn() || !path.starts_with(state.folder.Text()) ||
        rule.counted.find(static_cast<char>(use)) == std::string_view::npos)
        return Fate::Well;
    const bool first = ++state.calls == state.call;
    if (!first && (state.call < 1 || state.calls < state.call || rule.reason == Reason::None))
        return Fate::Well;
    SetReason(rule.reason);
    switch (state.kind) {
        case Kind::Full:
            return first && use == Use::Grow ? Fate::Middle : Fate::Error;
        case Kind::Locked:
        case Kind::Damaged:
            if (first) state.bad.Keep(path);
            return Stem(path) == Stem(state.bad.Text()) ? Fate::Error : Fate::Well;
        case Kind::Vanished:
            RemoveFile(path);
            return Fate::Well;
        case Kind::Killed:
            KillThisProgram();
            return Fate::Error;
        case Kind::KilledHalf:
            return Fate::Middle;
        default:
            return Fate::Error;
    }
}

void EndInTheMiddle() {
    if (state.kind == Kind::KilledHalf) KillThisProgram();
    SetReason(Reason::Full);
}

void Begin(const std::string& folder, Kind kind, int call) {
    Prepare();
    state = {};
    state.kind = kind;
    state.call = call;
    state.folder.Keep(files::Absolute(folder));
}

void Pause(bool paused) { state.paused = paused; }

int End() {
    const int calls = state.calls;
    state = {};
    return calls;
}

}  // namespace lumarin::disk_faults
