#include "entry/UserWindows.h"

#include <exception>

#include "entry/Settings.h"

namespace lumarin {

namespace {

constexpr const char* Section = "Lumarin";

std::string KeyOf(const std::string& window) { return "Layout " + window; }

}  // namespace

std::string UserWindows::Recall(const std::string& window) const noexcept {
    try {
        return settings::ReadText(host_.Common().UserFolder() + "User.ini", Section, KeyOf(window), "");
    } catch (const std::exception&) {
        return {};
    }
}

void UserWindows::Keep(const std::string& window, const std::string& layout) const noexcept {
    try {
        settings::WriteText(host_.Common().UserFolder() + "User.ini", Section, KeyOf(window), layout);
    } catch (const std::exception&) {  // a window that opens as designed is no loss
    }
}

}  // namespace lumarin
