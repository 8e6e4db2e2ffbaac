#include "photo_window/ImportSelection.h"

#include "photo_window/PhotoPackage.h"
#include "support/WindowTest.h"

namespace lumarin {
namespace {

using ImportSelection = testing::WindowTest;

TEST_F(ImportSelection, SelectedPaths_DialogAndDropTexts_AreRead) {
    EXPECT_EQ(SelectedPaths(""), Texts{});
    EXPECT_EQ(SelectedPaths("/a/b c.jpg"), Texts{"/a/b c.jpg"});
    EXPECT_EQ(SelectedPaths(Selection("/a|b.jpg|c d.jpg")), (Texts{"/a/b.jpg", "/a/c d.jpg"}));
    EXPECT_EQ(SelectedPaths(Selection("C:\\|b.jpg")), Texts{"C:\\b.jpg"});
    EXPECT_EQ(SelectedPaths(AsSelection({"/x/1.jpg", "/y/2.jpg"})), (Texts{"/x/1.jpg", "/y/2.jpg"}));
}

TEST_F(ImportSelection, ListingNumberOfFile_DigitsAtTheStart_FourToSixWithMoreBehind) {
    const std::pair<const char*, const char*> cases[] = {
        {"/p/12345-front.jpg", "12345"},
        {"C:\\p\\1234.jpg", "1234"},
        {"123456a", "123456"},
        {"123.jpg", ""},
        {"1234567a.jpg", ""},
        {"123456", ""},
        {"/12345/a.jpg", ""},
    };
    for (const auto& [path, number] : cases) EXPECT_EQ(ListingNumberOfFile(path), number) << path;
}

TEST_F(ImportSelection, FilesOfList_QuotedPaths_AreTakenApart) {
    EXPECT_EQ(FilesOfList(" \"/a b/1.dat\" \"/a b/1a.jpg\""), (Texts{"/a b/1.dat", "/a b/1a.jpg"}));
    EXPECT_EQ(FilesOfList(" \"/the \"best\"/1.dat\""), Texts{"/the \"best\"/1.dat"});
}

}  // namespace
}  // namespace lumarin
