#pragma once

#include <string>
#include <vector>

namespace lumarin {

/// The pictures of one batch that did not become pages, for one message about all of them.
class PageRefusals {
public:
    /// `sizes` says what it would take in fewer colours; "" where there are none.
    void AddTooLarge(const std::string& name, const std::string& sizes);
    /// `text` names the picture.
    void AddUnusable(const std::string& text) { unusable_.push_back(text); }
    void Clear();

    bool Any() const { return !tooLarge_.empty() || !unusable_.empty(); }
    std::string Text() const;
    std::string Title() const;

private:
    std::vector<std::string> tooLarge_, sizes_, unusable_;
};

}  // namespace lumarin
