#include "base/Text.h"

#include <gtest/gtest.h>

namespace lumarin {

TEST(Text, Utf16_HostileInput_SurvivesOrIsReplaced) {
    const std::u16string unpaired = {u'a', 0xD800, u'b', 0xDC00, 0xD83D, 0xDE00};
    EXPECT_EQ(text::ToUtf16(text::FromUtf16(unpaired)), unpaired);
    // Overlong, cut short, stray continuation, beyond the last code point.
    for (const char* bad : {"\xC0\x80", "\xE2\x82", "\x80", "\xF5\x80\x80\x80", "\xF4\x90\x80\x80"})
        EXPECT_EQ(text::ToUtf16(bad).front(), 0xFFFD) << bad;
}

TEST(Text, CodePage_AllBytes_SurviveTheRoundTrip) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_EQ(text::ToCodePage(text::FromCodePage(all)), all);
    EXPECT_EQ(text::FromCodePage("\x80\xE9"), "€é");
    EXPECT_EQ(text::ToCodePage("Łódź"), "?\xF3\x64?");
}

TEST(Text, ContainsIgnoringCase_Letters_CompareRegardlessOfCase) {
    EXPECT_TRUE(text::ContainsIgnoringCase("Vue du CÔTÉ jardin", "côté"));
    EXPECT_FALSE(text::ContainsIgnoringCase("Front", "/photos/front.jpg"));
    EXPECT_TRUE(text::ContainsIgnoringCase("Front", ""));
}

TEST(Text, AfterLastSeparator_BothSeparators_AreTaken) {
    EXPECT_EQ(text::AfterLastSeparator("C:\\Photos/12345.jpg"), "12345.jpg");
    EXPECT_EQ(text::AfterLastSeparator("a/b\\c"), "c");
    EXPECT_EQ(text::AfterLastSeparator("plain"), "plain");
}

}  // namespace lumarin
