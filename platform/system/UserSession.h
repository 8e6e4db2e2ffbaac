#pragma once

#include <string>
#include <vector>

namespace lumarin::platform {

/// The arguments after the program's name in UTF-8, whatever form the system gave `main`.
std::vector<std::string> ProgramArguments(int count, char** values);

/// Lets a program that has windows speak to the console it was started from, too, where the system keeps these apart.
/// Streams that lead elsewhere stay as they are. To be called before anything is written.
void SpeakToConsole();

/// The user's folder for the data of programs on this machine, without a separator at its end; "" when the
/// system names none.
std::string UserDataFolder();

/// Whether windows can be seen.
bool HasDisplay();

/// Where fonts are for those who draw without a display; "" where the system's own way to find them works there too.
std::string FontFolder();

}  // namespace lumarin::platform
