#include "platform/vips/PhotoRegions.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "platform/vips/PaperLight.h"
#include "platform/vips/Shades.h"

namespace lumarin::vips {

namespace {

constexpr int BlocksOfLongerSide = 128;
constexpr int SmallestBlock = 12;  // pixels; in fewer of them nothing can be told
/// Neighbouring pixels of a photo differ less than paper and ink do.
constexpr float SteepestShade = 40;  // on white paper

constexpr float White = 255;
constexpr float PaperShare = 0.1F;    // of a block, at least, is bare paper between letters
constexpr float DarkestPaper = 0.9F;  // of what it would be in this light
constexpr float WhitePaper = 200;     // what is darker is rather a photo's sky

// Of a region, in blocks.
constexpr std::size_t FewestBlocks = 24;
constexpr std::size_t FewestSure = 6;
constexpr std::size_t BlocksOfOneSure = 25;
constexpr std::size_t BlocksOfOnePaper = 10;  // of the whole page

int BlockSide(const GreyPixels& page) {
    return std::max(SmallestBlock, std::max(page.width, page.height) / BlocksOfLongerSide);
}

}  // namespace

struct PhotoRegions::Block {
    Shades all;
    Shades smooth;  ///< of the pixels that are not at an edge, as on white paper
};

PhotoRegions::PhotoRegions(const GreyPixels& page)
    : light_(page.width, page.height, BlockSide(page)), photo_(light_.All().size()) {
    Blocks blocks(photo_.size());
    CountAll(page, blocks);
    Cells brightness = light_;
    for (std::size_t i = 0; i < blocks.size(); ++i)
        brightness.All()[i] = blocks[i].all.Quantile(1 - PaperShare);
    light_ = PaperLight(brightness);
    CountSmooth(page, blocks);

    Marks sure(blocks.size()), notPaper(blocks.size());
    std::size_t paper = 0;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        sure[i] = blocks[i].smooth.AreOfPhoto(blocks[i].all.Count());
        notPaper[i] = sure[i] || brightness.All()[i] < DarkestPaper * light_.All()[i];
    }
    Marks left = notPaper;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (!left[i]) continue;
        const Places region = TakeRegion(i, left);
        if (IsPhoto(region, blocks, sure)) Fill(region);
    }
    for (std::size_t i = 0; i < blocks.size(); ++i)
        if (!photo_[i] && !notPaper[i] && light_.All()[i] >= WhitePaper) ++paper;
    hasPaper_ = paper * BlocksOfOnePaper >= blocks.size();
    Widen();
}

/// For each block that a row of pixels goes through: its place, and from which pixel to before which one.
template <class Use>
void PhotoRegions::ForEachStretch(int y, Use use) const {
    const int side = light_.Side();
    for (int column = 0; column < light_.Across(); ++column)
        use(Place(column, y / side), column * side, std::min(light_.Width(), (column + 1) * side));
}

void PhotoRegions::OfRow(int y, std::vector<std::uint8_t>& isPhoto) const {
    isPhoto.resize(static_cast<std::size_t>(light_.Width()));
    ForEachStretch(y, [&](std::size_t place, int from, int to) {
        std::fill(isPhoto.begin() + from, isPhoto.begin() + to, std::uint8_t{photo_[place]});
    });
}

void PhotoRegions::CountAll(const GreyPixels& page, Blocks& blocks) const {
    for (int y = 0; y < page.height; ++y)
        ForEachStretch(y, [&, row = page.Row(y)](std::size_t place, int from, int to) {
            for (int x = from; x < to; ++x) blocks[place].all.Add(row[x]);
        });
}

void PhotoRegions::CountSmooth(const GreyPixels& page, Blocks& blocks) const {
    for (int y = 0; y < page.height; ++y) {
        const std::uint8_t* row = page.Row(y);
        const std::uint8_t* next = page.Row(std::min(y + 1, page.height - 1));
        ForEachStretch(y, [&](std::size_t place, int from, int to) {
            const float whiten = White / light_.All()[place];
            const int steepest = static_cast<int>(SteepestShade / whiten);
            for (int x = from; x < to; ++x) {
                const int right = row[std::min(x + 1, page.width - 1)];
                if (std::abs(row[x] - right) < steepest && std::abs(row[x] - next[x]) < steepest)
                    blocks[place].smooth.Add(
                        static_cast<std::uint8_t>(std::min(White, static_cast<float>(row[x]) * whiten)));
            }
        });
    }
}

/// The blocks that hang together with this one, which are not left afterwards.
PhotoRegions::Places PhotoRegions::TakeRegion(std::size_t start, Marks& left) const {
    Places region{start};
    left[start] = false;
    for (std::size_t i = 0; i < region.size(); ++i) {
        const int column = static_cast<int>(region[i]) % light_.Across();
        const int row = static_cast<int>(region[i]) / light_.Across();
        for (int y = std::max(0, row - 1); y <= std::min(light_.Down() - 1, row + 1); ++y)
            for (int x = std::max(0, column - 1); x <= std::min(light_.Across() - 1, column + 1); ++x) {
                const std::size_t next = Place(x, y);
                if (left[next]) region.push_back(next);
                left[next] = false;
            }
    }
    return region;
}

/// Either many of its blocks are sure, or its blocks together are of many shades, though each of them is of
/// few.
bool PhotoRegions::IsPhoto(const Places& region, const Blocks& blocks, const Marks& sure) {
    if (region.size() < FewestBlocks) return false;
    std::size_t sureBlocks = 0;
    Shades smooth;
    std::uint32_t pixels = 0;
    for (const std::size_t place : region) {
        if (sure[place]) ++sureBlocks;
        smooth.Add(blocks[place].smooth);
        pixels += blocks[place].all.Count();
    }
    return sureBlocks >= std::max(FewestSure, region.size() / BlocksOfOneSure) || smooth.AreOfPhoto(pixels);
}

/// Takes in what lies between blocks of the region, in its rows and then in its columns: a white house,
/// clouds.
void PhotoRegions::Fill(const Places& region) {
    Marks filled(photo_.size());
    for (const std::size_t place : region) filled[place] = true;
    const auto fillLine = [&](auto place, int length) {
        int first = 0, last = length - 1;
        while (first < length && !filled[place(first)]) ++first;
        while (last > first && !filled[place(last)]) --last;
        for (int i = first; i <= last; ++i) filled[place(i)] = true;
    };
    for (int y = 0; y < light_.Down(); ++y) fillLine([&](int x) { return Place(x, y); }, light_.Across());
    for (int x = 0; x < light_.Across(); ++x) fillLine([&](int y) { return Place(x, y); }, light_.Down());
    for (std::size_t i = 0; i < filled.size(); ++i)
        if (filled[i]) photo_[i] = true;
}

/// By one block: the edge of a photo does not keep to blocks.
void PhotoRegions::Widen() {
    const Marks narrow = photo_;
    for (int y = 0; y < light_.Down(); ++y)
        for (int x = 0; x < light_.Across(); ++x)
            for (int i = 0; i < 9 && !photo_[Place(x, y)]; ++i)
                photo_[Place(x, y)] = narrow[Place(std::clamp(x + i % 3 - 1, 0, light_.Across() - 1),
                                                   std::clamp(y + i / 3 - 1, 0, light_.Down() - 1))];
}

}  // namespace lumarin::vips
