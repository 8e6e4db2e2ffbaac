#pragma once

#include <string>

namespace host {

/// A data folder may have a scanner configuration of its own, in its sub-folder "scanner" (dll.conf and the
/// devices' files). That folder, or "" when there is none and the machine's counts.
std::string ScannerConfiguration(const std::string& dataFolder);

/// Gives the data folder a configuration with nothing but the scanner library's test device, which draws
/// its pictures itself.
void UseTestScanner(const std::string& dataFolder);

}  // namespace host
