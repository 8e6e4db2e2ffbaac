#include "documents/builder/PageRefusals.h"

#include "base/Text.h"

namespace lumarin {

void PageRefusals::Clear() {
    tooLarge_.clear();
    sizes_.clear();
    unusable_.clear();
}

void PageRefusals::AddTooLarge(const std::string& name, const std::string& sizes) {
    tooLarge_.push_back(name);
    if (!sizes.empty()) sizes_.push_back(text::AfterLastSeparator(name) + ": " + sizes);
}

std::string PageRefusals::Text() const {
    std::string text;
    if (!tooLarge_.empty()) {
        text = "Cannot add file:\n";
        for (const std::string& name : tooLarge_) text += name + "\n";
        text += "Maximum size exceeded";
    }
    if (!sizes_.empty()) text += "\n\nWith fewer colors:";
    for (const std::string& sizes : sizes_) text += "\n" + sizes;
    for (const std::string& picture : unusable_) text += (text.empty() ? "" : "\n\n") + picture;
    return text;
}

std::string PageRefusals::Title() const { return unusable_.empty() ? "File is too large" : "Make PDF"; }

}  // namespace lumarin
