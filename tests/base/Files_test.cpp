#include "base/Files.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

using testing::TemporaryFolder;

TEST(Files, WriteWhole_TargetCannotBeWritten_SaysWhichAndWhyAndLeavesNothingBeside) {
    const TemporaryFolder folder;
    files::EnsureFolder(folder.Path() + "taken.dat/inside");  // a folder of that name: the rename must fail
    for (const auto& [name, why] :
         {std::pair{"taken.dat", "Is a directory"}, {"none/a.dat", "No such file"}}) {
        const std::string target = folder.Path() + name;
        try {
            files::WriteWhole(target, "new");
            ADD_FAILURE() << name;
        } catch (const FileError& error) {
            EXPECT_NE(error.Description().find(target), std::string::npos);
            EXPECT_NE(error.Description().find(why), std::string::npos) << error.Description();
        }
        EXPECT_FALSE(files::FileExists(files::UnfinishedName(target)));
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

}  // namespace lumarin
