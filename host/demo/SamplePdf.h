#pragma once

#include <string>
#include <vector>

namespace host {

/// A small PDF file of Letter pages, for the demo and for tests; the same calls give the same bytes. Texts
/// are ASCII.
class SamplePdf {
public:
    SamplePdf& AddText(const std::string& title, const std::vector<std::string>& lines);
    SamplePdf& AddFloorPlan(const std::string& title, const std::string& caption);

    std::string Bytes() const;
    /// The file made longer to exactly `size` bytes, by a comment. Throws lumarin::Error when it is longer.
    std::string BytesOf(std::size_t size) const;

private:
    std::vector<std::string> pages_;  ///< what is drawn
};

}  // namespace host
