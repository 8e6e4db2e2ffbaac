#pragma once

#include <string>

namespace host {

/// Creates the host's data folder with its sub-folders and the default settings, where they are missing,
/// and returns its path with a separator at its end. Throws lumarin::Error when it cannot be used.
std::string PrepareDataFolder(const std::string& folder);

}  // namespace host
