#pragma once

#include <windows.h>

#include <string>

/// The library as it is loaded into the host's process.
namespace lumarin::automation::module {

/// For the system's notice that the library is loaded.
void Loaded(HMODULE handle);
/// The library's own file.
std::wstring Path();

/// While one of these lives, the library is in use.
class Use {
public:
    Use();
    ~Use();
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
};
bool IsInUse();
/// The same for who locks and unlocks the library.
void Lock(bool lock);

/// From now on the library stays in the process: what a toolkit has once set up does not survive being
/// unloaded.
void Stay();

}  // namespace lumarin::automation::module
