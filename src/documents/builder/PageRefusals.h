#pragma once

#include <string>
#include <vector>

namespace lumarin {

/// The pictures of one batch that did not become pages, for one message about all of them.
class PageRefusals {
public:
    void AddTooLarge(const std::string& name) { tooLarge_.push_back(name); }
    /// `text` names the picture.
    void AddUnusable(const std::string& text) { unusable_.push_back(text); }
    void Clear();

    bool Any() const { return !tooLarge_.empty() || !unusable_.empty(); }
    std::string Text() const;
    std::string Title() const;

private:
    std::vector<std::string> tooLarge_, unusable_;
};

}  // namespace lumarin
