#pragma once

#include <string>
#include <utility>
#include <vector>

namespace lumarin {

/// The files that one import did not take, by the reason: each reason is said once.
class RefusedFiles {
public:
    void Add(const std::string& path, const std::string& reason);
    bool Empty() const { return reasons_.empty(); }
    /// Each reason, with the names of its files below it.
    std::string Text() const;

private:
    std::vector<std::pair<std::string, std::string>> reasons_;  ///< with the lines of their files
};

}  // namespace lumarin
