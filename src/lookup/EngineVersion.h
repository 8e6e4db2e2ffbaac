#pragma once

#include <cstdint>
#include <string>

namespace lumarin {

/// Port: what the operating system knows about program files, for the probe of the database engine.
/// Called on the user-interface thread; must not fail otherwise than by the results below.
class EngineVersion {
public:
    /// A file version as two doublewords: 4.0.3714.7 is 0x00040000 and 0x0E820007.
    struct Version {
        std::int32_t high = 0;
        std::int32_t low = 0;
    };

    virtual ~EngineVersion() = default;
    /// The folder of the platform's own files, without a separator at its end; "" when there is none.
    virtual std::string SystemFolder() const = 0;
    /// False when the file, or its version, is not available; `version` is untouched then.
    virtual bool FileVersion(const std::string& path, Version& version) const = 0;
};

/// For platforms that keep no versions in program files.
class NoEngineVersion final : public EngineVersion {
public:
    std::string SystemFolder() const override { return {}; }
    bool FileVersion(const std::string&, Version&) const override { return false; }
};

}  // namespace lumarin
