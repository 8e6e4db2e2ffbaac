#include "entry/Settings.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/Files.h"
#include "support/TemporaryFolder.h"

namespace lumarin {
namespace {

using testing::TemporaryFolder;

TEST(Settings, ReadText_FileForms_AreReadAsThePlatformDoes) {
    const TemporaryFolder folder;
    const std::string file = folder.Path() + "CityInfo.ini";
    files::WriteWhole(
        file,
        "; comment\r\n[Other]\r\nPhoto Size=9\r\n\r\n[LUMARIN]\r\nphoto size = 640,480,20,50000,4 \r\n"
        ";Photo Maximum=9\r\nQuoted=\"a b\"\r\nNoEquals\r\nMark=\xE9\x80\r\nEmpty=\r\n[Lumarin]\r\nLate=1");
    const auto read = [&](const char* key) { return settings::ReadText(file, "Lumarin", key, "default"); };
    EXPECT_EQ(read("Photo Size"), "640,480,20,50000,4");
    EXPECT_EQ(read("Photo Maximum"), "default");
    EXPECT_EQ(read("Quoted"), "a b");
    EXPECT_EQ(read("NoEquals"), "default");
    EXPECT_EQ(read("Mark"), "é€");
    EXPECT_EQ(read("Empty"), "");
    EXPECT_EQ(read("Late"), "default");  // only the first section of a name counts
    EXPECT_EQ(settings::ReadText(folder.Path() + "none.ini", "Lumarin", "x", "default"), "default");
}

TEST(Settings, ReadText_LongValue_IsCutAt249) {
    const TemporaryFolder folder;
    files::WriteWhole(folder.Path() + "a.ini", "[S]\nk=" + std::string(400, 'v'));
    EXPECT_EQ(settings::ReadText(folder.Path() + "a.ini", "S", "k", "").size(), 249U);
}

TEST(Settings, ReadInteger_NotANumber_IsZeroAndMissingIsTheDefault) {
    const TemporaryFolder folder;
    files::WriteWhole(folder.Path() + "a.ini", "[S]\na=12x\nb=many\nc=\n");
    const auto read = [&](const char* key) {
        return settings::ReadInteger(folder.Path() + "a.ini", "S", key, 4);
    };
    EXPECT_EQ(read("a"), 12);
    EXPECT_EQ(read("b"), 0);
    EXPECT_EQ(read("c"), 0);
    EXPECT_EQ(read("d"), 4);
}

TEST(Settings, WriteText_OneValue_LeavesTheRestUntouched) {
    struct Case {
        const char* name;
        std::string before, after;
    };
    const Case cases[] = {
        {"new file", "", "[S]\r\nk=v\r\n"},
        {"replaced", "[s]\nK = old\n; note\nx=1\n", "[s]\nk=v\n; note\nx=1\n"},
        {"added behind the section's lines", "[S]\r\na=1\r\n\r\n[T]\r\nk=t\r\n",
         "[S]\r\na=1\r\nk=v\r\n\r\n[T]\r\nk=t\r\n"},
        {"new section", "[T]\nk=t", "[T]\nk=t\n[S]\nk=v\n"},
        {"empty section at the end", "[T]\nk=t\n[S]\n", "[T]\nk=t\n[S]\nk=v\n"},
    };
    for (const Case& test : cases)
        EXPECT_EQ(settings::WithValue(test.before, "S", "k", "v"), test.after) << test.name;
    EXPECT_EQ(settings::WithValue("", "S", "k", "a\r\n[X]"), "[S]\r\nk=a [X]\r\n");  // no line of its own
}

TEST(Settings, WriteText_FolderReadOnly_SaysSoAndKeepsTheFile) {
    EXPECT_FALSE(settings::WriteText("/proc/none/User.ini", "S", "k", "v"));
}

}  // namespace
}  // namespace lumarin
