#include "imaging/clsLTDlg.h"

#include <gtest/gtest.h>

#include "base/Files.h"
#include "base/Text.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

/// The result with "|" for the NUL character.
std::string Normalized(const std::string& selection) {
    return text::ReplaceAll(clsLTDlg().NormalizeSelection(selection), std::string_view("\0", 1), "|");
}

TEST(Selection, FolderIsThere_NamesAreTakenFromIt) {
    const testing::TemporaryFolder root;
    const std::string photos = root.Path() + "pic.jpg s";
    files::EnsureFolder(photos + "/inner.jpg box");
    for (const char* name :
         {"/a.jpg", "/B.JPG", "/my house.jpg", "/front.jpg copy.jpg", "/scan.tiff", "/plan", "/.hidden.png"})
        files::WriteWhole(photos + name, "x");
    const std::pair<const char*, const char*> cases[] = {
        {"/a.jpg my house.jpg", "|a.jpg|my house.jpg"},
        {"/my house.jpg a.jpg", "|my house.jpg|a.jpg"},
        {" a.jpg my house.jpg", "|a.jpg|my house.jpg"},  // folder and names, blanks only
        {"/A.JPG b.jpg", "|a.jpg|B.JPG"},                // as they are written there
        {"/a.jpg front.jpg copy.jpg B.JPG", "|a.jpg|front.jpg copy.jpg|B.JPG"},
        {"/plan scan.tiff my house.jpg", "|plan|scan.tiff|my house.jpg"},  // a name of no picture's kind
        {"/a.jpg .hidden.png inner.jpg box", "|a.jpg|.hidden.png|inner.jpg box"},
        {"/my house.jpg", "/my house.jpg"},  // one file is unchanged
        {"/front.jpg copy.jpg", "/front.jpg copy.jpg"},
        {"/no such.jpg", "/no such.jpg"},
    };
    for (const auto& [names, result] : cases) EXPECT_EQ(Normalized(photos + names), photos + result) << names;
}

TEST(Selection, FolderIsUnknown_NamesEndAfterAPicturesExtension) {
    const std::pair<std::string, const char*> cases[] = {
        {"", ""},
        {std::string("C:\\Photos\0a.jpg b.jpg\0c.jpg", 27), "C:\\Photos|a.jpg b.jpg|c.jpg"},
        {"C:\\Photos\\a.jpg my house.jpg", "C:\\Photos|a.jpg|my house.jpg"},
        {"C:\\a.jpg b.jpg", "C:\\|a.jpg|b.jpg"},
        {"C:\\Photos\\a.HEIC b.WebP c.png", "C:\\Photos|a.HEIC|b.WebP|c.png"},
        {"\\\\server\\photos\\a.jpg b.jpg", "\\\\server\\photos|a.jpg|b.jpg"},
        {"\\\\server\\photos a.jpg b.jpg", "\\\\server\\photos|a.jpg|b.jpg"},
        {"a.jpg b.jpg", "|a.jpg|b.jpg"},
        {"/no/where/half\\half.jpg b.jpg", "/no/where/half|half.jpg|b.jpg"},
    };
    for (const auto& [selection, result] : cases) EXPECT_EQ(Normalized(selection), result) << selection;
}

}  // namespace lumarin
