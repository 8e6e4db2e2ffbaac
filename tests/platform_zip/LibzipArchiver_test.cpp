#include "platform/zip/LibzipArchiver.h"

#include <gtest/gtest.h>

#include "base/Files.h"
#include "support/Command.h"
#include "support/Reason.h"
#include "support/TemporaryFolder.h"

namespace lumarin::zip {

std::vector<std::string> NamesIn(const std::string& folder) {
    return files::List(folder, [](const std::string&) { return true; });
}

TEST(LibzipArchiver, Create_FromSeveralFolders_StoresByPlainNameOrLeavesNothing) {
    const testing::TemporaryFolder temporary;
    const std::string folder = temporary.Path(), photo(70'000, '\xA5'), archive = folder + "DB12345A101.zip";
    files::EnsureFolder(folder + "other/");
    const std::string paths[] = {folder + "100123a.jpg", folder + "other/empty [1].jpg",
                                 folder + "other/100123a.jpg"};
    files::WriteWhole(archive, "an older archive that is no zip");
    files::WriteWhole(paths[0], photo);
    for (const int empty : {1, 2}) files::WriteWhole(paths[empty], "");
    LibzipArchiver().Create(archive, {paths[0], paths[1]});
    EXPECT_EQ(NamesIn(folder), (std::vector<std::string>{"100123a.jpg", "DB12345A101.zip"}));
    testing::OutputOf("unzip -q '" + archive + "' -d " + folder + "out");
    EXPECT_EQ(NamesIn(folder + "out/"), (std::vector<std::string>{"100123a.jpg", "empty [1].jpg"}));
    EXPECT_EQ(files::ReadAll(folder + "out/100123a.jpg"), photo);

    for (const std::string& blamed : {folder + "missing.jpg", folder + "other", paths[2]}) {
        files::WriteWhole(archive, "older");
        const std::string reason = testing::ReasonOf([&] {
            LibzipArchiver().Create(archive, {paths[0], blamed});
        });
        EXPECT_TRUE(testing::Says(reason, blamed)) << reason;
        EXPECT_EQ(NamesIn(folder), std::vector<std::string>{"100123a.jpg"});
    }
}

}  // namespace lumarin::zip
