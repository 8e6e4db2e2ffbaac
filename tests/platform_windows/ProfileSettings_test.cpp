#include "platform/windows/ProfileSettings.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "base/FileSystem.h"
#include "support/SettingsRules.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

TEST(ProfileSettings, ReadAndWrite_FileForms_FollowThePlatform) {
    const testing::TemporaryFolder folder;
    testing::ExpectSettingsRules(windows::ProfileSettings(), folder.Path());
}

/// A host uses the functions of single bytes, and knows the folder by its short name if it has to.
TEST(ProfileSettings, Write_FolderWithLettersOfAllKinds_HostSeesIt) {
    const testing::TemporaryFolder folder;
    const windows::ProfileSettings settings;
    for (const std::string name : {"plain", "é", "中"}) {
        const std::string file = folder.Path() + name + "/User.ini";
        files::EnsureFolder(folder.Path() + name);
        ASSERT_TRUE(settings.WriteText(file, "Photos", "Default Import Dir", "C:\\é€\\")) << name;
        wchar_t shortFile[MAX_PATH];
        ASSERT_GT(GetShortPathNameW(files::ToPath(file).c_str(), shortFile, MAX_PATH), 0U) << name;
        const std::string hostFile = std::filesystem::path(shortFile).string();
        char value[250];
        GetPrivateProfileStringA("photos", "default import dir", "", value, sizeof value, hostFile.c_str());
        EXPECT_STREQ(value, "C:\\\xE9\x80\\") << name;
        EXPECT_TRUE(WritePrivateProfileStringA("Lumarin", "DocDir", "D:\\\xE4", hostFile.c_str()));
        EXPECT_EQ(settings.ReadText(file, "Lumarin", "DocDir", ""), "D:\\ä") << name;
    }
}

}  // namespace lumarin
