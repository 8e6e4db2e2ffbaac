#include "photo_window/PhotoPackage.h"

namespace lumarin {

std::string PackageName(const std::string& connectionName, const LocalTime& now, const std::string& agentId) {
    return connectionName + std::to_string(SecondsOfYear(now)) + agentId + ".zip";
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
