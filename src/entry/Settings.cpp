#include "entry/Settings.h"

#include "entry/PlainSettings.h"

namespace lumarin::settings {

namespace {

const PlainSettings Plain;
const SettingsFiles* used = &Plain;

}  // namespace

void Use(const SettingsFiles* files) { used = files != nullptr ? files : &Plain; }

std::string ReadText(const std::string& file, const std::string& section, const std::string& key,
                     const std::string& fallback) {
    return used->ReadText(file, section, key, fallback);
}

std::int32_t ReadInteger(const std::string& file, const std::string& section, const std::string& key,
                         std::int32_t fallback) {
    return used->ReadInteger(file, section, key, fallback);
}

bool WriteText(const std::string& file, const std::string& section, const std::string& key,
               const std::string& value) noexcept {
    return used->WriteText(file, section, key, value);
}

}  // namespace lumarin::settings
