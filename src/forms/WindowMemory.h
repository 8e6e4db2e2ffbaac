#pragma once

#include <string>

namespace lumarin {

/// Keeps what a user has made of a window (its size, splitters, columns) until it is opened again, for the
/// front end, which alone knows what the text says. It is one line of less than 250 ASCII characters. Never
/// throws.
class WindowMemory {
public:
    virtual ~WindowMemory() = default;
    /// "" when nothing is kept of this window, or it cannot be read.
    virtual std::string Recall(const std::string& window) const noexcept = 0;
    virtual void Keep(const std::string& window, const std::string& layout) const noexcept = 0;
};

}  // namespace lumarin
