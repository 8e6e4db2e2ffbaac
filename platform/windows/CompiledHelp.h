#pragma once

#include "forms/HelpViewer.h"

namespace lumarin::windows {

/// Adapter: compiled help files (.chm) in the system's viewer, which is loaded when it is needed first.
class CompiledHelp final : public HelpViewer {
public:
    bool Shows(const std::string& helpFile) const override;
    void Open(const std::string& helpFile, int context, std::uintptr_t owner) override;
};

}  // namespace lumarin::windows
