#include "imaging/clsLTDlg.h"

#include "base/Files.h"
#include "base/Text.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace lumarin {
namespace {

using lumarin::testing::TemporaryFolder;

/// The result with "|" for the NUL character.
std::string Normalized(const std::string& selection) {
    return text::ReplaceAll(clsLTDlg().NormalizeSelection(selection), std::string_view("\0", 1), "|");
}

class Selection : public ::testing::Test {
protected:
    Selection() {
        for (const char* name : {"my photos/", "my photos/inner.jpg box/", "pic.jpg s/"})
            files::EnsureFolder(root.Path() + name);
        for (const char* name :
             {"a.jpg", "B.JPG", "my house.jpg", "front.jpg copy.jpg", "scan.tiff", "plan", ".hidden.png"})
            files::WriteWhole(root.Path() + "my photos/" + name, "x");
        files::WriteWhole(root.Path() + "pic.jpg s/a.jpg", "x");
        files::WriteWhole(root.Path() + "pic.jpg s/b.jpg", "x");
    }

    const TemporaryFolder root;
};

TEST_F(Selection, FolderIsThere_NamesAreTakenFromIt) {
    const std::string photos = root.Path() + "my photos";
    const struct {
        const char* names;
        const char* result;
    } cases[] = {{"/a.jpg my house.jpg", "|a.jpg|my house.jpg"},
                 {"/my house.jpg a.jpg", "|my house.jpg|a.jpg"},
                 {"/ a.jpg  my house.jpg ", "|a.jpg|my house.jpg"},
                 {" a.jpg my house.jpg", "|a.jpg|my house.jpg"},  // folder and names, blanks only
                 {"/A.JPG b.jpg", "|a.jpg|B.JPG"},                // as they are written there
                 {"/a.jpg front.jpg copy.jpg B.JPG", "|a.jpg|front.jpg copy.jpg|B.JPG"},
                 {"/scan.tiff a.jpg", "|scan.tiff|a.jpg"},
                 {"/plan a.jpg my house.jpg", "|plan|a.jpg|my house.jpg"},  // a name of no picture's kind
                 {"/a.jpg .hidden.png inner.jpg box", "|a.jpg|.hidden.png|inner.jpg box"}};
    for (const auto& given : cases)
        EXPECT_EQ(Normalized(photos + given.names), photos + given.result) << given.names;
    const std::string odd = root.Path() + "pic.jpg s";
    EXPECT_EQ(Normalized(odd + "/a.jpg b.jpg"), odd + "|a.jpg|b.jpg");
}

TEST_F(Selection, OneFile_IsUnchanged) {
    for (const char* name : {"a.jpg", "my house.jpg", "front.jpg copy.jpg", "no such.jpg"})
        EXPECT_EQ(Normalized(root.Path() + "my photos/" + name), root.Path() + "my photos/" + name);
    EXPECT_EQ(Normalized(""), "");
    const std::string ready("C:\\Photos\0a.jpg b.jpg\0c.jpg", 27);
    EXPECT_EQ(clsLTDlg().NormalizeSelection(ready), ready);
}

TEST(SelectionOfUnknownFiles, NamesEndAfterAPicturesExtension) {
    const struct {
        const char* selection;
        const char* result;
    } cases[] = {{"C:\\Photos\\a.jpg my house.jpg", "C:\\Photos|a.jpg|my house.jpg"},
                 {"C:\\a.jpg b.jpg", "C:\\|a.jpg|b.jpg"},
                 {"/a.jpg b.jpg", "/|a.jpg|b.jpg"},
                 {"C:\\Photos\\a.HEIC b.WebP c.png", "C:\\Photos|a.HEIC|b.WebP|c.png"},
                 {"\\\\server\\photos\\a.jpg b.jpg", "\\\\server\\photos|a.jpg|b.jpg"},
                 {"\\\\server\\photos a.jpg b.jpg", "\\\\server\\photos|a.jpg|b.jpg"},
                 {"a.jpg b.jpg", "|a.jpg|b.jpg"},
                 {"/no/where/half\\half.jpg b.jpg", "/no/where|half\\half.jpg|b.jpg"}};
    for (const auto& given : cases) EXPECT_EQ(Normalized(given.selection), given.result) << given.selection;
}

}  // namespace
}  // namespace lumarin
