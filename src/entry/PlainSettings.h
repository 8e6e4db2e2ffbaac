#pragma once

#include "entry/SettingsFiles.h"

namespace lumarin {

/// Settings files where the platform has no operations for them: in the single-byte code page, or in UTF-8
/// where the file says so. A file that is written stays the same file, with its owner, mode and links
/// (`files::Rewrite`).
class PlainSettings final : public SettingsFiles {
public:
    std::string ReadText(const std::string& file, const std::string& section, const std::string& key,
                         const std::string& fallback) const override;
    std::int32_t ReadInteger(const std::string& file, const std::string& section, const std::string& key,
                             std::int32_t fallback) const override;
    bool WriteText(const std::string& file, const std::string& section, const std::string& key,
                   const std::string& value) const noexcept override;
};

}  // namespace lumarin
