#include "photo_window/PhotoPackage.h"

#include <algorithm>

namespace lumarin {

std::string PackageName(const std::string& connectionName, const LocalTime& now, const std::string& agentId) {
    return connectionName + std::to_string(SecondsOfYear(now)) + agentId + ".zip";
}

bool IsPackage(std::string_view name, std::string_view connectionName, std::string_view agentId) {
    if (!name.starts_with(connectionName)) return false;
    name.remove_prefix(connectionName.size());
    const std::size_t digits = std::min(name.find_first_not_of("0123456789"), name.size());
    // An agent's id may start with digits itself.
    const std::string ending = std::string(agentId) + ".zip";
    const std::size_t end = name.find(ending, 1);
    if (digits == 0 || end == std::string_view::npos || end > digits) return false;
    name.remove_prefix(end + ending.size());
    return name.empty() || name.starts_with(".part");  // the archiver may put something behind that
}

std::vector<std::string> FilesOfList(const std::string& fileList) {
    constexpr std::string_view Between = "\" \"";
    std::vector<std::string> paths;
    if (fileList.size() < 3) return paths;
    // Without the blank and quote at its start and the quote at its end.
    std::string_view rest = std::string_view(fileList).substr(2, fileList.size() - 3);
    for (std::size_t at = rest.find(Between); at != std::string_view::npos; at = rest.find(Between)) {
        paths.emplace_back(rest.substr(0, at));
        rest.remove_prefix(at + Between.size());
    }
    paths.emplace_back(rest);
    return paths;
}

}  // namespace lumarin
