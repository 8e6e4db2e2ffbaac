#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <tuple>

#include "base/Files.h"
#include "base/Rewrite.h"
#include "entry/PlainSettings.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

/// A file that others use too: 0666, with a second name, behind a link, in a folder that may not be written;
/// one that may not be written itself. For root everything can be written, so somebody else does it.
TEST(Settings, Write_SharedFile_StaysTheSameFile) {
    namespace fs = std::filesystem;
    const testing::TemporaryFolder folder, other;
    const std::string file = folder.Path() + "CityInfo.ini", link = other.Path() + "link.ini";
    files::WriteWhole(file, "[S]\nk=a long old value\n");
    fs::create_hard_link(file, other.Path() + "second.ini");
    fs::create_symlink(file, link);
    constexpr auto Everybody = static_cast<fs::perms>(0777), ReadAndWrite = static_cast<fs::perms>(0666),
                   ReadOnly = static_cast<fs::perms>(0444), ReadOnlyFolder = static_cast<fs::perms>(0555);
    const std::tuple<const char*, std::string, fs::perms, fs::perms, bool> cases[] = {
        {"v", link, Everybody, ReadAndWrite, true},
        {"a new and even longer value", file, ReadOnlyFolder, ReadAndWrite, true},
        {"none", file, Everybody, ReadOnly, false},
    };
    for (const auto& [value, path, folderMode, mode, written] : cases) {
        fs::permissions(folder.Path(), folderMode);
        fs::permissions(file, mode);
        const std::string before = files::ReadAll(file);
        const uid_t user = geteuid();
        if (path == file && user == 0) {
            ASSERT_EQ(seteuid(65534), 0);
        }
        EXPECT_EQ(PlainSettings().WriteText(path, "S", "k", value), written);
        ASSERT_EQ(seteuid(user), 0);
        EXPECT_EQ(files::ReadAll(file), written ? std::string("[S]\nk=") + value + "\n" : before);
        EXPECT_TRUE(fs::is_symlink(link) && fs::equivalent(file, other.Path() + "second.ini"));
        EXPECT_EQ(fs::status(file).permissions(), mode);
        EXPECT_FALSE(fs::exists(files::ChangeName(path)));
    }
}

}  // namespace lumarin
