#include "base/Files.h"

#include <gtest/gtest.h>

#include "support/Reason.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

using testing::ReasonOf, testing::Says;

TEST(Files, WriteWhole_TargetCannotBeWritten_SaysWhichAndWhyAndLeavesNothingBeside) {
    const testing::TemporaryFolder folder;
    files::EnsureFolder(folder.Path() + "taken.dat/inside");  // a folder of that name: the rename must fail
    for (const auto& [name, why] :
         {std::pair{"taken.dat", "Is a directory"}, {"none/a.dat", "No such file"}}) {
        const std::string target = folder.Path() + name;
        const std::string reason = ReasonOf([&] { files::WriteWhole(target, "new"); });
        EXPECT_TRUE(Says(reason, target) && Says(reason, why)) << reason;
        EXPECT_FALSE(files::FileExists(files::UnfinishedName(target)));
    }
}

}  // namespace lumarin
