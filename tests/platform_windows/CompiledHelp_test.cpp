#include "platform/windows/CompiledHelp.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "base/Files.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

TEST(CompiledHelp, Open_NotAHelpFile_IsAnErrorThatNamesIt) {
    const testing::TemporaryFolder folder;
    const std::string file = folder.Path() + "Help.CHM";
    files::WriteWhole(file, "not a help file");
    windows::CompiledHelp help;
    EXPECT_TRUE(help.Shows(file));
    EXPECT_FALSE(help.Shows(folder.Path() + "Help.chm/index.html"));
    try {
        help.Open(file, 3, 0);
        FAIL() << "it was shown";
    } catch (const FileError& error) {
        const std::string reason = "Help.CHM\": HTML Help cannot show its page 3";
        EXPECT_NE(error.Description().find(reason), std::string::npos) << error.Description();
    }
}

}  // namespace lumarin
