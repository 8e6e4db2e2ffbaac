#include "photo_window/RefusedFiles.h"

#include <algorithm>

#include "base/Text.h"

namespace lumarin {

void RefusedFiles::Add(const std::string& path, const std::string& reason) {
    auto found = std::ranges::find(reasons_, reason, &std::pair<std::string, std::string>::first);
    if (found == reasons_.end()) found = reasons_.insert(reasons_.end(), {reason, ""});
    found->second += "\n" + text::AfterLastSeparator(path);
}

std::string RefusedFiles::Text() const {
    std::string text = "Not imported:";
    for (const auto& [reason, files] : reasons_) text += "\n\n" + reason + files;
    return text;
}

}  // namespace lumarin
