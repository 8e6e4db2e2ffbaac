#include "entry/Settings.h"

#include <gtest/gtest.h>

#include "base/Files.h"
#include "support/TemporaryFolder.h"

namespace lumarin {
namespace {

TEST(Settings, Read_FileForms_AreReadAsThePlatformDoes) {
    const testing::TemporaryFolder folder;
    const std::string file = folder.Path() + "CityInfo.ini";
    files::WriteWhole(
        file,
        "; comment\r\n[Other]\r\nPhoto Size=9\r\n\r\n[LUMARIN]\r\nphoto size = 640,480,20,50000,4 \r\n"
        ";Photo Maximum=9\r\nQuoted=\"a b\"\r\nNoEquals\r\nMark=\xE9\x80\r\nEmpty=\r\nNumber= -12x\r\nLong=" +
            std::string(400, 'v') + "\r\n[Lumarin]\r\nLate=1");
    const std::pair<const char*, std::string> texts[] = {
        {"Photo Size", "640,480,20,50000,4"},
        {"Photo Maximum", "default"},
        {"Quoted", "a b"},
        {"NoEquals", "default"},
        {"Mark", "é€"},
        {"Empty", ""},
        {"Long", std::string(249, 'v')},
        {"Late", "default"},  // only the first section of a name counts
    };
    for (const auto& [key, text] : texts)
        EXPECT_EQ(settings::ReadText(file, "Lumarin", key, "default"), text) << key;
    EXPECT_EQ(settings::ReadText(folder.Path() + "none.ini", "Lumarin", "x", "default"), "default");
    for (const auto& [key, number] : {std::pair{"Number", -12}, {"Mark", 0}, {"Empty", 0}, {"Late", 4}})
        EXPECT_EQ(settings::ReadInteger(file, "Lumarin", key, 4), number) << key;
}

TEST(Settings, Write_OneValue_LeavesTheRestUntouched) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "[S]\r\nk=v\r\n"},
        {"[s]\nK = old\n; note\nx=1\n", "[s]\nk=v\n; note\nx=1\n"},
        {"[S]\r\na=1\r\n\r\n[T]\r\nk=t\r\n", "[S]\r\na=1\r\nk=v\r\n\r\n[T]\r\nk=t\r\n"},
        {"[T]\nk=t", "[T]\nk=t\n[S]\nk=v\n"},
    };
    for (const auto& [before, after] : cases) EXPECT_EQ(settings::WithValue(before, "S", "k", "v"), after);
    EXPECT_EQ(settings::WithValue("", "S", "k", "a\r\n[X]"), "[S]\r\nk=a [X]\r\n");  // no line of its own
}

}  // namespace
}  // namespace lumarin
