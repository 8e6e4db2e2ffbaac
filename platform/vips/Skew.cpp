#include "platform/vips/Skew.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <utility>
#include <vector>

namespace lumarin::vips {

namespace {

// Degrees.
constexpr double MostSkew = 10;
constexpr double Searched = 12;  // a best one outside of the most is none at its border
constexpr double CoarseStep = 0.2;
constexpr double FineStep = 0.02;
constexpr double NotWorthIt = 0.1;
constexpr double PeakReach = 1.5;  // of the lines of one page
constexpr double SameAngle = 0.4;

constexpr int CoarseBin = 4;                // pixels
constexpr std::size_t FewestPoints = 1500;  // of three lines of text; a signature has less
constexpr std::size_t MostPoints = 60'000;
/// How much sharper the lines stand out at their own angle than at others, at least.
constexpr double ClearLines = 0.5;
/// Lines in another direction, this sharp by comparison, make it unsure.
constexpr double OtherLines = 0.5;
constexpr double EdgeShare = 0.02;  // of the page, where the sheet's own edges may lie

struct Point {
    float along = 0, across = 0;
};
using Points = std::vector<Point>;

struct Lines {
    double angle = 0;      ///< degrees clockwise
    double sharpness = 0;  ///< 0 is none at all
};

/// How sharply the points fall into lines of this angle: the sum of the squares of how many lie on each.
double SharpnessAt(const Points& points, double degrees, int bin) {
    const double angle = degrees * std::numbers::pi / 180;
    const auto sine = static_cast<float>(std::sin(angle) / bin);
    const auto cosine = static_cast<float>(std::cos(angle) / bin);
    constexpr int Offset = 1024;  // keeps the numbers of lines positive
    std::vector<std::uint32_t> lines(4 * static_cast<std::size_t>(Offset));
    for (const Point& point : points) {
        const auto line = static_cast<std::size_t>(point.across * cosine - point.along * sine + Offset);
        if (line < lines.size()) ++lines[line];
    }
    double sum = 0;
    for (const double count : lines) sum += count * count;
    return sum;
}

/// The angle with the sharpest lines. Where they lie in more than one direction, the level ones count.
Lines FindLines(const Points& points) {
    if (points.size() < FewestPoints) return {};
    constexpr int Steps = static_cast<int>(Searched / CoarseStep);
    std::vector<double> sharpness;
    for (int step = -Steps; step <= Steps; ++step)
        sharpness.push_back(SharpnessAt(points, step * CoarseStep, CoarseBin));
    const auto best = std::max_element(sharpness.begin(), sharpness.end());
    const double coarse = (static_cast<double>(best - sharpness.begin()) - Steps) * CoarseStep;

    std::vector<double> sorted = sharpness;
    std::nth_element(sorted.begin(), sorted.begin() + Steps, sorted.end());
    const double usual = sorted[Steps];
    const auto above = [usual](double value) { return value / usual - 1; };
    const auto level = std::max_element(sharpness.begin() + Steps - 1, sharpness.begin() + Steps + 2);
    if (std::abs(coarse) > PeakReach && above(*level) > OtherLines * above(*best)) return {0, above(*best)};

    Lines found{coarse, above(*best)};
    double sharpest = 0;
    for (double angle = coarse - 2 * CoarseStep; angle <= coarse + 2 * CoarseStep; angle += FineStep) {
        const double here = SharpnessAt(points, angle, 1);
        if (here <= sharpest) continue;
        sharpest = here;
        found.angle = angle;
    }
    return found;
}

void ThinOut(Points& points) {
    const std::size_t every = points.size() / MostPoints + 1;
    for (std::size_t i = 0; i * every < points.size(); ++i) points[i] = points[i * every];
    points.resize((points.size() + every - 1) / every);
}

}  // namespace

double SkewOf(const InkMask& ink, const PhotoRegions& photos) {
    const int edge = static_cast<int>(EdgeShare * std::max(ink.Width(), ink.Height()));
    Points rows, columns;
    std::vector<std::uint8_t> isPhoto;
    for (int y = edge; y < ink.Height() - edge - 1; ++y) {
        photos.OfRow(y, isPhoto);
        for (int x = edge; x < ink.Width() - edge - 1; ++x) {
            if (!ink.At(x, y) || isPhoto[static_cast<std::size_t>(x)] != 0) continue;
            const Point point{static_cast<float>(x), static_cast<float>(y)};
            if (!ink.At(x, y + 1)) rows.push_back(point);
            // Seen from the side, what is turned clockwise runs to the left.
            if (!ink.At(x + 1, y)) columns.push_back({-point.across, point.along});
        }
    }
    ThinOut(rows);
    ThinOut(columns);
    Lines found = FindLines(rows);
    Lines other = FindLines(columns);
    if (other.sharpness > found.sharpness) std::swap(found, other);
    const bool disagree =
        other.sharpness > OtherLines * found.sharpness && std::abs(other.angle - found.angle) > SameAngle;
    if (found.sharpness < ClearLines || disagree) return 0;
    return std::abs(found.angle) < NotWorthIt || std::abs(found.angle) > MostSkew ? 0 : found.angle;
}

}  // namespace lumarin::vips
