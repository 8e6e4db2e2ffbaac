#pragma once

#include <string_view>

/// What the faults of all systems have in common. A system's own part stands between this program and the
/// functions by which files are used, under any name. They run inside of anything: nothing here allocates.
namespace lumarin::disk_faults {

/// What a call wants of a file: open it to read, take bytes from it, make it, let it grow, change it
/// otherwise.
enum class Use : char { Read = 'R', Take = 'T', Make = 'M', Grow = 'G', Change = 'C' };

/// What is to happen to a call. One that comes to its middle writes half where it writes at all.
enum class Fate { Well, Error, Middle };

enum class Reason { None, Full, ReadOnly, Denied, Damaged };

/// Counts the call. Where it fails, its caller finds the reason. A zero ends the path.
Fate FateOf(std::string_view path, Use use);

/// Whether calls are to be looked at now.
bool IsOn();

// Each system has its own of these.
/// Before calls are counted.
void Prepare();
void SetReason(Reason reason);
void RemoveFile(std::string_view path);
void KillThisProgram();

/// The kind's own end of a call that came to its middle.
void EndInTheMiddle();

template <class Result, class Call>
Result Does(Fate fate, Result failure, Call call) {
    if (fate == Fate::Error) return failure;
    const Result result = call();
    if (fate == Fate::Well) return result;
    EndInTheMiddle();
    return failure;
}

}  // namespace lumarin::disk_faults
