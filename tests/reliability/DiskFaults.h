#pragma once

#include <string>

/// Faults of the disk below one folder. The calls by which this program changes or reads files are counted,
/// and a chosen one goes wrong. Nothing waits for the disk, here and elsewhere, so that the tests are quick.
namespace lumarin::disk_faults {

enum class Kind {
    None,       ///< calls are counted only, as for Killed
    Full,       ///< nothing can be made or grow from that call on, which writes half of what it should
    ReadOnly,   ///< nothing can be changed from that call on
    Locked,     ///< from that call on nobody gets at its file, neither for writing nor for reading
    Damaged,    ///< from that call on nobody gets any bytes of its file, whose name is still there
    Vanished,   ///< the file that is opened by that call is gone
    Killed,     ///< the program is killed before that call
    KilledHalf  ///< the program is killed in the middle of that call, or behind it if it has no middle
};

/// Faults are tried at one call of so many: under Wine each takes its time.
extern const int Stride;

/// Counting starts again; the fault happens at the call of this number, from 1. `folder` ends in a separator.
void Begin(const std::string& folder, Kind kind, int call);
/// Until the next call nothing is counted and nothing goes wrong.
void Pause(bool paused);
/// The disk is well again. Returns how many calls were counted.
int End();

}  // namespace lumarin::disk_faults
