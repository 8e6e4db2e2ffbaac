#include "entry/PlainSettings.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/Files.h"
#include "base/Rewrite.h"
#include "entry/SettingsText.h"
#include "support/SettingsRules.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

TEST(PlainSettings, ReadAndWrite_FileForms_FollowThePlatform) {
    const testing::TemporaryFolder folder;
    testing::ExpectSettingsRules(PlainSettings(), folder.Path());
}

TEST(Settings, Write_OneValue_LeavesTheRestUntouched) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "[S]\r\nk=v\r\n"},
        {"[s]\nK = old\n; note\nx=1\n", "[s]\nk=v\n; note\nx=1\n"},
        {"[S]\r\na=1\r\n\r\n[T]\r\nk=t\r\n", "[S]\r\na=1\r\nk=v\r\n\r\n[T]\r\nk=t\r\n"},
        {"[T]\nk=t", "[T]\nk=t\n[S]\nk=v\n"},
        {"\xEF\xBB\xBF[S]\nu=\xC3\xA9\nk=t\n", "\xEF\xBB\xBF[S]\nu=\xC3\xA9\nk=v\n"},
    };
    for (const auto& [before, after] : cases) EXPECT_EQ(settings::WithValue(before, "S", "k", "v"), after);
    EXPECT_EQ(settings::WithValue("", "S", "k", "a\r\n[X]"), "[S]\r\nk=a [X]\r\n");  // no line of its own
    EXPECT_EQ(settings::FindValue(cases[4].first, "S", "u"), "é");
}

TEST(Settings, Read_WriteWasInterrupted_IsFinishedUnlessSomebodyElseWrote) {
    const testing::TemporaryFolder folder;
    const std::string file = folder.Path() + "User.ini";
    const std::string before = "[S]\nk=old\nx=1\n", after = "[S]\nk=a new one\nx=1\n",
                      shorter = "[S]\nk=n\nx=1\n";
    const auto kept = [&](const std::string& wanted) {
        return std::to_string(before.size()) + "\n" + before + wanted;
    };
    const std::tuple<const char*, std::string, std::string, std::string> cases[] = {
        {"not begun", before, kept(after), before},
        {"in the middle", after.substr(0, 9) + before.substr(9), kept(after), after},
        {"behind the old end", after.substr(0, before.size() + 2), kept(after), after},
        {"not yet cut", shorter + before.substr(shorter.size()), kept(shorter), shorter},
        {"somebody else wrote", "[S]\nk=other\n", kept(after), "[S]\nk=other\n"},
        {"damaged copy", after.substr(0, 9) + before.substr(9), "99\n",
         after.substr(0, 9) + before.substr(9)},
    };
    for (const auto& [name, bytes, change, read] : cases) {
        files::WriteWhole(file, bytes);
        files::WriteWhole(files::ChangeName(file), change);
        EXPECT_EQ(files::ReadRewritten(file), read) << name;
        EXPECT_EQ(files::ReadAll(file), read) << name;
        EXPECT_TRUE(PlainSettings().WriteText(file, "S", "k", "next"));
        EXPECT_FALSE(files::FileExists(files::ChangeName(file))) << name;
    }
}

}  // namespace lumarin
