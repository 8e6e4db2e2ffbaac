#pragma once

#include <cstdint>
#include <string>

namespace lumarin {

/// Port: shows help files of a kind that no browser shows. Called on the user-interface thread.
class HelpViewer {
public:
    virtual ~HelpViewer() = default;

    /// Whether the file is of that kind; a browser shows every other one.
    virtual bool Shows(const std::string& helpFile) const = 0;

    /// Opens the page of a context number in a window of its own above `owner`, a window as the system
    /// numbers it (0 for none). Throws Error when it cannot be shown.
    virtual void Open(const std::string& helpFile, int context, std::uintptr_t owner) = 0;
};

}  // namespace lumarin
