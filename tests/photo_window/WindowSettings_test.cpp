#include "photo_window/WindowSettings.h"

#include <gtest/gtest.h>

#include "base/Files.h"
#include "support/FakeHost.h"

namespace lumarin {
namespace {

TEST(WindowSettings, NoFiles_GiveTheDefaults) {
    const testing::FakeHost host;
    const WindowSettings read = ReadWindowSettings(host);
    EXPECT_EQ(read.photoSize, "480,300,35,35000,4");
    EXPECT_TRUE(read.filePreview);
    EXPECT_EQ(read.photoMaximum, 4);
    EXPECT_FALSE(read.sortNames);
    EXPECT_EQ(read.importFolder, "");
    EXPECT_EQ(read.startUpPosition, "1,100");
}

TEST(WindowSettings, PhotoMaximum_AboveTheSlots_IsHeldAt26) {
    const testing::FakeHost host;
    files::WriteWhole(host.CityFolder() + "CityInfo.ini", "[Lumarin]\nPhoto Maximum=99\n");
    EXPECT_EQ(ReadWindowSettings(host).photoMaximum, 26);
}

TEST(WindowSettings, PositionOnScreen_OnlyTheFarEdges_PullTheWindowBack) {
    const Rect window{0, 0, 6000, 4000};
    const Size screen{15000, 12000};
    struct Case {
        const char* position;
        double left, top;
    };
    const Case cases[] = {{"99999,99999", 9000, 8000},
                          {"-500,-500", -500, -500},
                          {"2415.5,1830", 2415.5, 1830},
                          {"here", 1, 100},
                          {"7", 1, 100}};
    for (const Case& test : cases) {
        const Rect place = PositionOnScreen(test.position, window, screen);
        EXPECT_EQ(place.left, test.left) << test.position;
        EXPECT_EQ(place.top, test.top) << test.position;
    }
}

TEST(WindowSettings, FolderOfSelection_BothForms_EndInASeparator) {
    EXPECT_EQ(FolderOfSelection(std::string("/a\0b.jpg", 8)), "/a/");
    EXPECT_EQ(FolderOfSelection("/a/b.jpg"), "/a/");
    EXPECT_EQ(FolderOfSelection("C:\\p\\b.jpg"), "C:\\p\\");
    EXPECT_EQ(FolderOfSelection("b.jpg"), "");
    EXPECT_EQ(FolderOfSelection(""), "");
}

}  // namespace
}  // namespace lumarin
