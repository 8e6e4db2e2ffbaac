#include "documents/builder/PageRefusals.h"

namespace lumarin {

void PageRefusals::Clear() {
    tooLarge_.clear();
    unusable_.clear();
}

std::string PageRefusals::Text() const {
    std::string text;
    if (!tooLarge_.empty()) {
        text = "Cannot add file:\n";
        for (const std::string& name : tooLarge_) text += name + "\n";
        text += "Maximum size exceeded";
    }
    for (const std::string& picture : unusable_) text += (text.empty() ? "" : "\n\n") + picture;
    return text;
}

std::string PageRefusals::Title() const { return unusable_.empty() ? "File is too large" : "Make PDF"; }

}  // namespace lumarin
