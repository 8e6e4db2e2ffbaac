#include "base/Files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/Error.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

using testing::TemporaryFolder;

TEST(Files, WriteWhole_TargetCannotBeReplaced_LeavesNothingBeside) {
    const TemporaryFolder folder;
    const std::string target = folder.Path() + "taken.dat";
    files::EnsureFolder(target);  // a folder of that name: the rename must fail
    files::EnsureFolder(target + "/inside");
    EXPECT_THROW(files::WriteWhole(target, "new"), FileError);
    EXPECT_FALSE(files::FileExists(files::UnfinishedName(target)));
}

TEST(Files, WriteWhole_MissingFolder_SaysWhichFileAndWhy) {
    const TemporaryFolder folder;
    try {
        files::WriteWhole(folder.Path() + "none/a.dat", "x");
        FAIL() << "no error";
    } catch (const FileError& error) {
        EXPECT_NE(error.Description().find("none/a.dat"), std::string::npos);
        EXPECT_NE(error.Description().find("No such file"), std::string::npos);
    }
}

TEST(Files, NamesOutsideAscii_GoThereAndBack) {
    const TemporaryFolder folder;
    const std::string name = "Häuser [1] \"ß\".jpg";
    files::WriteWhole(folder.Path() + name, "abc");
    files::Copy(folder.Path() + name, folder.Path() + "copy");
    EXPECT_EQ(files::List(folder.Path(), [](const std::string&) { return true; }),
              (std::vector<std::string>{name, "copy"}));
    EXPECT_EQ(files::FileLength(folder.Path() + name), 3U);
    EXPECT_EQ(files::ReadAll(folder.Path() + "copy"), "abc");
}

TEST(Files, Reader_ReadsInPieces_LastIsTheRest) {
    const TemporaryFolder folder;
    files::WriteWhole(folder.Path() + "a", std::string(5121, 'x'));
    files::Reader reader(folder.Path() + "a");
    EXPECT_EQ(reader.Length(), 5121U);
    EXPECT_EQ(reader.Read(5120).size(), 5120U);
    EXPECT_EQ(reader.Read(5120).size(), 1U);
    EXPECT_EQ(reader.Read(5120).size(), 0U);
    EXPECT_THROW(files::Reader(folder.Path() + "b"), FileError);
}

TEST(Files, FixedPath_Backslashes_BecomeThePlatformsSeparator) {
    EXPECT_EQ(files::FixedPath("Users\\Default\\Rental\\"),
              "Users" + files::Separator + "Default" + files::Separator + "Rental" + files::Separator);
}

}  // namespace lumarin
