#pragma once

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "base/Files.h"
#include "entry/SettingsFiles.h"

namespace lumarin::testing {

/// What every reader and writer of settings files does; the platform's own is the measure of the other.
inline void ExpectSettingsRules(const SettingsFiles& settings, const std::string& folder) {
    const std::string file = folder + "CityInfo.ini";
    files::WriteWhole(
        file,
        "; comment\r\n[Other]\r\nPhoto Size=9\r\n\r\n[LUMARIN]\r\nphoto size = 640,480,20,50000,4 \r\n"
        ";Photo Maximum=9\r\nQuoted=\"a "
        "b\"\r\nOdd=\"a'\r\nNoEquals\r\nMark=\xE9\x80\r\nEmpty=\r\nEquals=a=b\r\n"
        "Number= "
        "-12x\r\nHex=-0x1Fg\r\nOctal=0o17\r\nBinary=0b112\r\nSign=+7\r\nHuge=4294967297\r\nTwice=1\r\n"
        "Twice=2\r\nTab\t=\t3\t\r\n #Hash='4'\r\nLong=" +
            std::string(400, 'v') + "\r\n [ Lumarin ] \r\nLate=1\r\n[Behind]it\r\nk=5");
    const std::tuple<const char*, const char*, std::string, int> cases[] = {
        {"Lumarin", "Photo Size", "640,480,20,50000,4", 640},
        {"Lumarin", "Photo Maximum", "none", -3},
        {"Lumarin", "Quoted", "a b", 0},
        {"Lumarin", "Odd", "\"a'", 0},
        {"Lumarin", "NoEquals", "none", -3},
        {"Lumarin", "Mark", "é€", 0},
        {"Lumarin", "Empty", "", -3},
        {"Lumarin", "Equals", "a=b", 0},
        {"Lumarin", "Number", "-12x", -12},
        {"Lumarin", "Hex", "-0x1Fg", -31},
        {"Lumarin", "Octal", "0o17", 15},
        {"Lumarin", "Binary", "0b112", 3},
        {"Lumarin", "Sign", "+7", 7},
        {"Lumarin", "Huge", "4294967297", 1},
        {"Lumarin", "Twice", "1", 1},
        {"Lumarin", "Tab", "3", 3},
        {"Lumarin", "#hash", "4", 4},
        {"Lumarin", "Long", std::string(249, 'v'), 0},
        {"Lumarin", "Late", "none", -3},  // only the first section of a name counts
        {"Behind", "k", "5", 5},
    };
    for (const auto& [section, key, text, number] : cases) {
        EXPECT_EQ(settings.ReadText(file, section, key, "none"), text) << key;
        EXPECT_EQ(settings.ReadInteger(file, section, key, -3), number) << key;
    }
    EXPECT_EQ(settings.ReadText(folder + "none.ini", "Lumarin", "Sign", "none"), "none");

    const std::tuple<const char*, const char*, std::string, std::string> writes[] = {
        {"Lumarin", "quoted", "é€", "é€"},     {"Lumarin", "New", "1,100", "1,100"},
        {"NEW", "Blanks", " a ", "a"},         {"New", "Letters", "中", "?"},
        {"New", "Lines", "a\r\n[X]", "a [X]"}, {"Lumarin", "Long", "", ""},
    };
    for (const auto& [section, key, value, read] : writes) {
        EXPECT_TRUE(settings.WriteText(file, section, key, value)) << key;
        EXPECT_EQ(settings.ReadText(file, section, key, "none"), read) << key;
    }
    EXPECT_EQ(settings.ReadText(file, "Lumarin", "Photo Size", "none"), "640,480,20,50000,4");
    EXPECT_EQ(settings.ReadText(file, "Behind", "k", "none"), "5");
    EXPECT_FALSE(settings.WriteText(folder + "none/User.ini", "Lumarin", "New", "1"));
}

}  // namespace lumarin::testing
