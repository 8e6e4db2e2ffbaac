#include "platform/windows/CompiledHelp.h"

#include <gtest/gtest.h>

#include "base/Files.h"
#include "support/Reason.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

TEST(CompiledHelp, Open_NotAHelpFile_IsAnErrorThatNamesIt) {
    const testing::TemporaryFolder folder;
    const std::string file = folder.Path() + "Help.CHM";
    files::WriteWhole(file, "not a help file");
    windows::CompiledHelp help;
    EXPECT_TRUE(help.Shows(file));
    EXPECT_FALSE(help.Shows(folder.Path() + "Help.chm/index.html"));
    const std::string reason = testing::ReasonOf([&] { help.Open(file, 3, 0); });
    EXPECT_TRUE(testing::Says(reason, "Help.CHM\": HTML Help cannot show its page 3")) << reason;
}

}  // namespace lumarin
