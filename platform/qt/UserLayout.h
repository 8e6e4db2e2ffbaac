#pragma once

#include <QString>

#include <map>
#include <string>
#include <vector>

#include "forms/WindowMemory.h"

class QWidget;

namespace lumarin::qt {

/// What the user has made of one window, as numbers under names: "size" and "maximised", and the parts of
/// each splitter and list under its object name. What the user has left alone is not kept: the design may
/// change.
class UserLayout {
public:
    /// The memory may be null; it outlives this.
    UserLayout(std::string window, const WindowMemory* memory);

    /// None for what is not kept.
    const std::vector<int>& Of(const QString& name) const;
    void Set(const QString& name, std::vector<int> numbers);
    /// Writes it if it has changed since.
    void Keep();

    /// Puts the splitters back and notes how the user moves them. The layout outlives the window.
    void FollowSplitters(QWidget& window);

private:
    std::string Text() const;

    std::string window_;
    const WindowMemory* memory_;
    std::map<std::string, std::vector<int>> parts_;
    std::string kept_;
};

}  // namespace lumarin::qt
