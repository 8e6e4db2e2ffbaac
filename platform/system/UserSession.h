#pragma once

#include <string>
#include <vector>

namespace lumarin::platform {

/// The arguments after the program's name in UTF-8, whatever form the system gave `main`.
std::vector<std::string> ProgramArguments(int count, char** values);

/// The user's folder for the data of programs on this machine, without a separator at its end; "" when the
/// system names none.
std::string UserDataFolder();

/// Whether windows can be seen.
bool HasDisplay();

/// Where fonts are for those who draw without a display; "" where the system's own way to find them works there too.
std::string FontFolder();

}  // namespace lumarin::platform
