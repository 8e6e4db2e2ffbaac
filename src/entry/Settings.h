#pragma once

#include <cstdint>
#include <string>

#include "entry/SettingsFiles.h"

/// The component's settings, through the files that were named last (`SettingsFiles` has the rules).
namespace lumarin::settings {

/// What all windows of the component read and write from now on; not owned. Null stands for `PlainSettings`,
/// which are used too as long as nothing was named.
void Use(const SettingsFiles* files);

std::string ReadText(const std::string& file, const std::string& section, const std::string& key,
                     const std::string& fallback);
std::int32_t ReadInteger(const std::string& file, const std::string& section, const std::string& key,
                         std::int32_t fallback);
bool WriteText(const std::string& file, const std::string& section, const std::string& key,
               const std::string& value) noexcept;

}  // namespace lumarin::settings
