#include "platform/vips/InkMask.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace lumarin::vips {

namespace {

constexpr double PageLength = 280;  // millimetres, of the longer side; what is scanned may be smaller
constexpr int Around = 12;          // pixels on each side of one, to compare it with

// What is darker than around it by less is rather the other side of the sheet; grain by its own measure.
constexpr int FaintestInk = 14;
constexpr int StrongestGrain = 60;
constexpr double GrainReach = 4 * 1.4826;  // of its median: four of its standard deviation

// Millimetres.
constexpr double LargestDust = 1.2;
constexpr double EdgeWidth = 6;
constexpr double WidestEdge = 28;
constexpr double SmallestHole = 4, LargestHole = 9, HoleFromEdge = 25;

/// So many specks are no dust any more, but a dotted line or a print in fine dots.
constexpr int MostDust = 60;
constexpr std::size_t SmallestSpeck = 3;  // pixels

/// The mean of the pixels around each one, in a row of pixels: sums of columns, moved along.
class Surroundings {
public:
    explicit Surroundings(const GreyPixels& page)
        : page_(page), columns_(static_cast<std::size_t>(page.width)) {
        for (int y = 0; y < Around; ++y) Count(y, 1);
    }
    /// For one row after the other, from the first.
    void NextRow(std::vector<int>& means) {
        Count(y_ + Around, 1);
        Count(y_ - Around - 1, -1);
        const int rows = std::min(page_.height - 1, y_ + Around) - std::max(0, y_ - Around) + 1;
        ++y_;
        means.resize(columns_.size());
        int sum = 0, count = 0;
        const int width = page_.width;
        for (int x = -Around; x < width; ++x) {
            if (x + Around < width) sum += columns_[static_cast<std::size_t>(x + Around)], ++count;
            if (x - Around - 1 >= 0) sum -= columns_[static_cast<std::size_t>(x - Around - 1)], --count;
            if (x >= 0) means[static_cast<std::size_t>(x)] = sum / (count * rows);
        }
    }

private:
    void Count(int y, int sign) {
        if (y < 0 || y >= page_.height) return;
        const std::uint8_t* row = page_.Row(y);
        for (std::size_t x = 0; x < columns_.size(); ++x) columns_[x] += sign * row[x];
    }

    const GreyPixels& page_;
    std::vector<int> columns_;
    int y_ = 0;
};

int Median(const std::array<std::size_t, 256>& counts) {
    std::size_t all = 0, below = 0;
    for (const std::size_t count : counts) all += count;
    int value = 0;
    while (value < 255 && (below += counts[static_cast<std::size_t>(value)]) * 2 < all) ++value;
    return value;
}

}  // namespace

InkMask::InkMask(const GreyPixels& page)
    : width_(page.width), height_(page.height), ink_(page.values.size()) {
    MarkDark(page);
    std::vector<std::uint8_t> left = ink_;
    int specks = 0;
    for (int y = 0; y < height_; ++y)
        for (int x = 0; x < width_; ++x) {
            if (left[Place(x, y)] == 0) continue;
            const Spot spot = TakeSpot(x, y, left);
            const bool isDust = Millimetres(std::max(spot.Across(), spot.Down())) < LargestDust;
            if (isDust && spot.pixels.size() >= SmallestSpeck) ++specks;
            if (isDust)
                for (const std::size_t pixel : spot.pixels) ink_[pixel] = 0;
            else if (!IsOfTheSheet(spot) && !IsPunchedHole(spot))
                hasContents_ = true;
        }
    if (specks > MostDust) hasContents_ = true;
}

double InkMask::Millimetres(int pixels) const { return PageLength * pixels / std::max(width_, height_); }

void InkMask::MarkDark(const GreyPixels& page) {
    std::array<std::size_t, 256> differences{};
    std::vector<int> means;
    Surroundings first(page);
    for (int y = 0; y < height_; ++y) {
        first.NextRow(means);
        const std::uint8_t* row = page.Row(y);
        for (std::size_t x = 0; x < means.size(); ++x)
            ++differences[static_cast<std::size_t>(std::abs(means[x] - row[x]))];
    }
    const int grain = static_cast<int>(GrainReach * Median(differences));
    const int limit = std::clamp(grain, FaintestInk, StrongestGrain);
    Surroundings second(page);
    for (int y = 0; y < height_; ++y) {
        second.NextRow(means);
        const std::uint8_t* row = page.Row(y);
        for (std::size_t x = 0; x < means.size(); ++x)
            if (means[x] - row[x] > limit) ink_[Place(0, y) + x] = 1;
    }
}

/// The spot that this pixel belongs to, which is not left afterwards.
InkMask::Spot InkMask::TakeSpot(int x, int y, std::vector<std::uint8_t>& left) const {
    Spot spot{{Place(x, y)}, x, y, x, y};
    left[spot.pixels.front()] = 0;
    for (std::size_t i = 0; i < spot.pixels.size(); ++i) {
        const int column = static_cast<int>(spot.pixels[i] % static_cast<std::size_t>(width_));
        const int row = static_cast<int>(spot.pixels[i] / static_cast<std::size_t>(width_));
        spot.left = std::min(spot.left, column);
        spot.right = std::max(spot.right, column);
        spot.bottom = std::max(spot.bottom, row);
        for (int nextY = std::max(0, row - 1); nextY <= std::min(height_ - 1, row + 1); ++nextY)
            for (int nextX = std::max(0, column - 1); nextX <= std::min(width_ - 1, column + 1); ++nextX) {
                const std::size_t next = Place(nextX, nextY);
                if (left[next] != 0) spot.pixels.push_back(next);
                left[next] = 0;
            }
    }
    return spot;
}

/// Millimetres from the nearest edge of the picture to what of the spot lies farthest from it.
double InkMask::FromEdge(const Spot& spot) const {
    return Millimetres(1 +
                       std::min({spot.right, spot.bottom, width_ - 1 - spot.left, height_ - 1 - spot.top}));
}

/// The shadow of the sheet's edge, or what lay beside it: all at an edge, or running into the page from
/// there.
bool InkMask::IsOfTheSheet(const Spot& spot) const {
    if (FromEdge(spot) <= EdgeWidth) return true;
    const int outside = std::min({spot.left, spot.top, width_ - 1 - spot.right, height_ - 1 - spot.bottom});
    return outside <= 1 && FromEdge(spot) <= WidestEdge;
}

bool InkMask::IsPunchedHole(const Spot& spot) const {
    const double across = Millimetres(spot.Across()), down = Millimetres(spot.Down());
    return FromEdge(spot) <= HoleFromEdge && std::min(across, down) >= SmallestHole &&
           std::max(across, down) <= LargestHole && std::abs(across - down) <= 1;
}

}  // namespace lumarin::vips
