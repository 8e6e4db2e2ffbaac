#include "platform/system/UserSession.h"

#include <cstdlib>

namespace lumarin::platform {

namespace {

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

}  // namespace

std::vector<std::string> ProgramArguments(int count, char** values) { return {values + 1, values + count}; }

void SpeakToConsole() {}

std::string UserDataFolder() {
    if (std::string data = Environment("XDG_DATA_HOME"); !data.empty()) return data;
    const std::string home = Environment("HOME");
    return home.empty() ? "" : home + "/.local/share";
}

bool HasDisplay() { return !Environment("DISPLAY").empty() || !Environment("WAYLAND_DISPLAY").empty(); }

std::string FontFolder() { return ""; }

}  // namespace lumarin::platform
