#pragma once

#include "entry/SettingsFiles.h"

namespace lumarin::windows {

/// Adapter: settings files through the platform's private-profile functions, so that host and component see
/// one file, whatever its encoding. Those of wide characters: a file lies in folders of any name, and what it
/// holds goes through the code page in them just as in the functions of single bytes.
class ProfileSettings final : public SettingsFiles {
public:
    std::string ReadText(const std::string& file, const std::string& section, const std::string& key,
                         const std::string& fallback) const override;
    std::int32_t ReadInteger(const std::string& file, const std::string& section, const std::string& key,
                             std::int32_t fallback) const override;
    bool WriteText(const std::string& file, const std::string& section, const std::string& key,
                   const std::string& value) const noexcept override;
};

}  // namespace lumarin::windows
