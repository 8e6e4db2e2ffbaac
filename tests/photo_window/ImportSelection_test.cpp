#include "photo_window/ImportSelection.h"

#include <gtest/gtest.h>

#include "photo_window/PhotoPackage.h"

namespace lumarin {
namespace {

using Paths = std::vector<std::string>;

TEST(ImportSelection, SelectedPaths_DialogAndDropTexts_AreRead) {
    const auto nul = [](std::string text) {
        for (char& c : text)
            if (c == '|') c = '\0';
        return text;
    };
    EXPECT_EQ(SelectedPaths(""), Paths{});
    EXPECT_EQ(SelectedPaths("/a/b c.jpg"), Paths{"/a/b c.jpg"});
    EXPECT_EQ(SelectedPaths(nul("/a|b.jpg|c d.jpg")), (Paths{"/a/b.jpg", "/a/c d.jpg"}));
    EXPECT_EQ(SelectedPaths(nul("C:\\|b.jpg")), Paths{"C:\\b.jpg"});
    EXPECT_EQ(SelectedPaths(AsSelection({"/x/1.jpg", "/y/2.jpg"})), (Paths{"/x/1.jpg", "/y/2.jpg"}));
    EXPECT_EQ(SelectedPaths(AsSelection({"/x/1.jpg"})), Paths{"/x/1.jpg"});
}

TEST(ImportSelection, ListingNumberOfFile_DigitsAtTheStart_FourToSixWithMoreBehind) {
    const std::pair<const char*, const char*> cases[] = {{"/p/12345-front.jpg", "12345"},
                                                         {"C:\\p\\1234.jpg", "1234"},
                                                         {"123456a", "123456"},
                                                         {"123.jpg", ""},
                                                         {"1234567a.jpg", ""},
                                                         {"123456", ""},
                                                         {"/12345/a.jpg", ""}};
    for (const auto& [path, number] : cases) EXPECT_EQ(ListingNumberOfFile(path), number) << path;
}

TEST(PhotoPackage, FilesOfList_QuotedPaths_AreTakenApart) {
    EXPECT_EQ(FilesOfList(""), Paths{});
    EXPECT_EQ(FilesOfList(" \"/a b/1.dat\" \"/a b/1a.jpg\""), (Paths{"/a b/1.dat", "/a b/1a.jpg"}));
    EXPECT_EQ(FilesOfList(" \"/the \"best\"/1.dat\""), Paths{"/the \"best\"/1.dat"});
}

TEST(PhotoPackage, PackageName_SecondsOfTheYear_AreUnpadded) {
    EXPECT_EQ(PackageName("VEL", {.year = 2026, .month = 1, .day = 1, .second = 7}, "A101"), "VEL7A101.zip");
}

}  // namespace
}  // namespace lumarin
