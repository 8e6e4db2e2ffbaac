#pragma once

#include <sane/sane.h>

#include <cstdint>
#include <span>
#include <vector>

#include "forms/Picture.h"

namespace lumarin::sane {

/// Makes one picture from the frames of a page: grey, colour, or red, green and blue in three passes, each
/// with 1, 8 or 16 bits per sample, and of known or unknown length. Throws ScannerError for a frame of
/// another kind or a picture with more than MaximumPixels.
class PageAssembler {
public:
    void BeginFrame(const SANE_Parameters& frame);
    /// The frame's next bytes, cut anywhere.
    void Add(std::span<const SANE_Byte> bytes);
    /// From 0 to 100 over all frames of the page; -1 for a page of unknown length.
    int Percent() const;
    /// The page; without the lines that never came. Throws ScannerError when none did.
    Picture Take();

private:
    void AddLine(const SANE_Byte* line);
    std::uint8_t Sample(const SANE_Byte* line, int column, int channel, int channels) const;
    bool IsBand() const { return frame_.format != SANE_FRAME_GRAY && frame_.format != SANE_FRAME_RGB; }

    SANE_Parameters frame_{};
    int framesBegun_ = 0;
    int lines_ = 0;         ///< lines of this frame so far
    int longestFrame_ = 0;  ///< lines of the longest frame so far
    std::vector<SANE_Byte> partOfLine_;
    Picture picture_;
};

}  // namespace lumarin::sane
