#pragma once

#include <cstdint>
#include <string>

namespace lumarin {

/// Port: the settings files, INI files that the component shares with its host, with the rules of the
/// platform's private-profile operations. Section and key names are not case-sensitive; blanks around keys
/// and values are dropped, as is one pair of quotes around a value. Texts and paths are UTF-8. Called on the
/// user-interface thread.
class SettingsFiles {
public:
    virtual ~SettingsFiles() = default;

    /// The first 249 characters of the value, or `fallback` when file, section or key is missing.
    virtual std::string ReadText(const std::string& file, const std::string& section, const std::string& key,
                                 const std::string& fallback) const = 0;

    /// The value's leading whole number (0 when it does not start with one), or `fallback` when it is missing
    /// or empty.
    virtual std::int32_t ReadInteger(const std::string& file, const std::string& section,
                                     const std::string& key, std::int32_t fallback) const = 0;

    /// Sets one value and leaves every other line as it is. False when the file could not be written.
    virtual bool WriteText(const std::string& file, const std::string& section, const std::string& key,
                           const std::string& value) const noexcept = 0;
};

}  // namespace lumarin
