#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Clock.h"

namespace lumarin {

/// Name of an upload package: the connection's name, the whole seconds since 1 January, the agent, ".zip".
std::string PackageName(const std::string& connectionName, const LocalTime& now, const std::string& agentId);

/// Whether a file is such a package, or the beginning of one, that a run which was killed has left.
bool IsPackage(std::string_view name, std::string_view connectionName, std::string_view agentId);

/// The paths in a package file list, in which each stands in double quotes with a blank before it. A path
/// may hold a double quote itself where no blank follows it.
std::vector<std::string> FilesOfList(const std::string& fileList);

}  // namespace lumarin
