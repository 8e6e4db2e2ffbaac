#include "imaging/CropGeometry.h"

#include <gtest/gtest.h>

namespace lumarin::crop {

constexpr float Ratio = 1.6F;
const Rect Box{1000, 2000, 1600, 1000};

void ExpectRect(const Rect& actual, const Rect& expected, const std::string& name) {
    EXPECT_NEAR(actual.left, expected.left, 0.01) << name;
    EXPECT_NEAR(actual.top, expected.top, 0.01) << name;
    EXPECT_NEAR(actual.width, expected.width, 0.01) << name;
    EXPECT_NEAR(actual.height, expected.height, 0.01) << name;
}

TEST(CropGeometry, PointerOverTheBox_TakesTheEdgeInOrder) {
    const std::tuple<double, double, HitZone> cases[] = {
        {999, 2500, HitZone::Outside},    {1000, 2500, HitZone::LeftEdge},  {1149, 2010, HitZone::LeftEdge},
        {1150, 2500, HitZone::Inside},    {1150, 2149, HitZone::TopEdge},   {2450, 2500, HitZone::Inside},
        {2451, 2990, HitZone::RightEdge}, {2600, 2500, HitZone::RightEdge}, {1800, 2851, HitZone::BottomEdge},
        {1800, 3001, HitZone::Outside},   {2601, 2500, HitZone::Outside},   {1800, 1999, HitZone::Outside},
        {880, 1880, HitZone::TopLeft},    {1060, 2060, HitZone::TopLeft},   {1061, 2060, HitZone::LeftEdge},
        {2720, 1900, HitZone::TopRight},  {900, 3120, HitZone::BottomLeft}, {2600, 3121, HitZone::Outside},
    };
    for (const auto& [x, y, zone] : cases) EXPECT_EQ(HitTest(Box, x, y), zone) << x << ", " << y;
}

TEST(CropGeometry, Drag_KeepsTheRatioAndTheOtherMiddle) {
    const std::tuple<const char*, HitZone, Rect> cases[] = {
        {"left", HitZone::LeftEdge, {1160, 2050, 1440, 900}},
        {"right", HitZone::RightEdge, {1000, 1950, 1760, 1100}},
        {"top", HitZone::TopEdge, {1064, 2080, 1472, 920}},
        {"bottom", HitZone::BottomEdge, {936, 2000, 1728, 1080}},
        {"inside", HitZone::Inside, {1160, 2080, 1600, 1000}},
        {"top left", HitZone::TopLeft, {1128, 2080, 1472, 920}},
        {"top right", HitZone::TopRight, {1000, 1900, 1760, 1100}},
        {"bottom right", HitZone::BottomRight, {1000, 2000, 1760, 1100}},
    };
    for (const auto& [name, zone, after] : cases) ExpectRect(Dragged(Box, zone, 160, 80, Ratio), after, name);
    // Dragged through its other edge, a box stops at 300 twips and holds that edge.
    ExpectRect(Dragged(Box, HitZone::LeftEdge, 5000, 0, Ratio), {2120, 2350, 480, 300},
               "left past the right");
    ExpectRect(Dragged(Box, HitZone::BottomEdge, 0, -5000, 0.5F), {1650, 2000, 300, 600}, "tall");
}

TEST(CropGeometry, Placement_FillsOneSideAndMayOverhangTheOther) {
    const Rect tall{100, 200, 2400, 4800};
    ExpectRect(CenteredByWidth(tall, Ratio), {100, 1850, 2400, 1500}, "width");
    ExpectRect(CenteredByHeight(tall, Ratio), {-2540, 200, 7680, 4800}, "height, wider than the picture");
}

// A picture of 640 x 400 pixels in a preview of 320 x 200; a pixel of it is 7.5 twips.
TEST(CropGeometry, MappedBox_IsCutAtThePicturesEdges) {
    const Rect preview{600, 300, 4800, 3000};
    const std::tuple<const char*, Rect, PixelRect, int, PixelRect> cases[] = {
        {"whole", preview, {0, 0, 640, 400}, 0, {0, 0, 480, 300}},
        {"a quarter", {1800, 1050, 2400, 1500}, {160, 100, 320, 200}, 520, {0, 0, 480, 300}},
        {"half off to the left", {-1800, 300, 4800, 3000}, {0, 0, 320, 400}, 0, {240, 0, 240, 300}},
        {"half off to the right", {3000, 300, 4800, 3000}, {320, 0, 320, 400}, 0, {0, 0, 240, 300}},
        {"off below", {600, 1800, 4800, 3000}, {0, 200, 640, 200}, 0, {0, 0, 480, 150}},
        {"off all around", {-1800, -1200, 9600, 6000}, {0, 0, 640, 400}, -1040, {120, 75, 240, 150}},
    };
    for (const auto& [name, box, cut, sum, place] : cases) {
        const MappedBox mapped = MapToPicture(box, preview, 0.5F, 640, 400);
        EXPECT_EQ(mapped.cut, cut) << name;
        EXPECT_EQ(mapped.SumOfMargins(), sum) << name;
        EXPECT_EQ(PlaceInPhoto(mapped, preview.width / box.width * 480 / 640, 480, 300), place) << name;
    }
    EXPECT_LE(MapToPicture({6000, 300, 1600, 1000}, preview, 0.5F, 640, 400).cut.width, 0)
        << "beside the picture";
}

TEST(CropGeometry, CutThatNearlyFillsThePhoto_IsSnapped) {
    const std::tuple<int, PixelRect> cases[] = {
        {3, {0, 0, 480, 300}}, {5, {0, 0, 480, 300}}, {6, {0, 6, 480, 294}}};
    for (const auto& [overhang, place] : cases) {
        const MappedBox box{.topMargin = -overhang, .cut = {0, 0, 480, 300 - overhang}};
        EXPECT_EQ(PlaceInPhoto(box, 1.0, 480, 300), place) << overhang;
    }
    // Twelve pixels of a tiny picture, coarsely rounded: nothing is missing, so nothing becomes white.
    EXPECT_EQ(PlaceInPhoto({.cut = {4, 4, 12, 8}}, 38.0, 480, 300), (PixelRect{0, 0, 480, 300}));
}

}  // namespace lumarin::crop
