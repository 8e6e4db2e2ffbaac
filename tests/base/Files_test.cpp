#include "base/Files.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

TEST(Files, WriteWhole_TargetCannotBeWritten_SaysWhichAndWhyAndLeavesNothingBeside) {
    const testing::TemporaryFolder folder;
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

}  // namespace lumarin
