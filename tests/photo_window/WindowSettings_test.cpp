#include "photo_window/WindowSettings.h"

#include "support/WindowTest.h"

namespace lumarin {
namespace {

TEST(WindowSettings, PhotoMaximum_AboveTheSlots_IsHeldAt26) {
    const testing::FakeHost host;
    EXPECT_EQ(ReadWindowSettings(host).photoMaximum, 4);
    files::WriteWhole(host.CityFolder() + "CityInfo.ini", "[Lumarin]\nPhoto Maximum=99\n");
    EXPECT_EQ(ReadWindowSettings(host).photoMaximum, 26);
}

TEST(WindowSettings, PositionOnScreen_OnlyTheFarEdges_PullTheWindowBack) {
    const struct {
        const char* position;
        double left, top;
    } cases[] = {
        {"99999,99999", 9000, 8000},
        {"-500,-500", -500, -500},
        {"2415.5,1830", 2415.5, 1830},
        {"here", 1, 100},
        {"7", 1, 100},
    };
    for (const auto& [position, left, top] : cases)
        EXPECT_EQ(PositionOnScreen(position, {0, 0, 6000, 4000}, {15000, 12000}),
                  (Rect{left, top, 6000, 4000}))
            << position;
}

}  // namespace
}  // namespace lumarin
