#pragma once

#include <string>

namespace host {

/// The help for agents, one HTML file. The page of a window is the section whose id is the window's help
/// context number.
std::string HelpText();

/// Makes the file at `path` this help: writes it when it is missing or another, as after an update. Throws
/// lumarin::Error when it cannot be written.
void InstallHelpFile(const std::string& path);

}  // namespace host
