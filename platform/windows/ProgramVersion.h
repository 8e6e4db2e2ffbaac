#pragma once

#include "lookup/EngineVersion.h"

namespace lumarin::windows {

/// Adapter: the versions that program files carry as a resource.
class ProgramVersion final : public EngineVersion {
public:
    std::string SystemFolder() const override;
    bool FileVersion(const std::string& path, Version& version) const override;
};

}  // namespace lumarin::windows
