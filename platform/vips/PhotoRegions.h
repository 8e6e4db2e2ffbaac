#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/vips/Cells.h"
#include "platform/vips/GreyPixels.h"

namespace lumarin::vips {

/// Which parts of a page show photos, told in square blocks. A photo has many shades between paper and ink
/// that pass into each other, where letters and lines have them at their edges alone; and it goes on as far
/// as there is no paper.
class PhotoRegions {
public:
    explicit PhotoRegions(const GreyPixels& page);

    /// Whether there is white paper beside the photos. A picture without any is a photo as a whole.
    bool HasPaper() const { return hasPaper_; }
    /// For each pixel of a row whether it belongs to a photo.
    void OfRow(int y, std::vector<std::uint8_t>& isPhoto) const;
    /// How bright paper is, or would be, in every part of the page.
    const Cells& Light() const { return light_; }

private:
    struct Block;
    using Blocks = std::vector<Block>;
    using Marks = std::vector<bool>;
    using Places = std::vector<std::size_t>;

    std::size_t Place(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(light_.Across()) +
               static_cast<std::size_t>(column);
    }
    template <class Use>
    void ForEachStretch(int y, Use use) const;
    void CountAll(const GreyPixels& page, Blocks& blocks) const;
    void CountSmooth(const GreyPixels& page, Blocks& blocks) const;
    Places TakeRegion(std::size_t start, Marks& left) const;
    static bool IsPhoto(const Places& region, const Blocks& blocks, const Marks& sure);
    void Fill(const Places& region);
    void Widen();

    Cells light_;
    Marks photo_;
    bool hasPaper_ = false;
};

}  // namespace lumarin::vips
