#include <gtest/gtest.h>

#include <cmath>

#include "base/Clock.h"
#include "base/Error.h"
#include "base/Numbers.h"
#include "base/NumericText.h"
#include "base/SizeText.h"
#include "base/Text.h"

namespace lumarin {

TEST(Clock, SecondsOfYear_LeapYears_Count) {
    EXPECT_EQ(SecondsOfYear({.year = 2024, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 59}),
              366 * 86400 - 1);
}

TEST(Numbers, RoundToWhole_Halves_GoToEven) {
    const std::pair<double, int> cases[] = {{0.5, 0},  {1.5, 2},   {2.5, 2},
                                            {-0.5, 0}, {-1.5, -2}, {299.4999, 299}};
    for (const auto& [value, expected] : cases) EXPECT_EQ(RoundToWhole(value), expected) << value;
    EXPECT_THROW(RoundToWhole(3e9), Error);
    EXPECT_THROW(RoundToWhole(std::nan("")), Error);
}

TEST(SizeText, RoundsUpInItsOwnUnits) {
    const std::pair<std::int64_t, const char*> cases[] = {
        {0, ""},
        {1023, "1023"},
        {1024, "1KB"},
        {1025, "2KB"},
        {1023999, "1000KB"},
        {1024000, "1MB"},
        {1024001, "2MB"},
        {5'000'000'000, "4883MB"},
    };
    for (const auto& [bytes, expected] : cases) EXPECT_EQ(SizeText(bytes), expected) << bytes;
}

TEST(Numbers, ParseListingNumber_OnlyPlainPositiveNumbers_AreTaken) {
    EXPECT_EQ(ParseListingNumber("100123"), 100123);
    EXPECT_EQ(ParseListingNumber("2147483647"), 2147483647);
    for (const char* bad :
         {"", "0", "0123", "-5", "+5", " 5", "5 ", "5;DROP", "1e3", "2147483648", "1,2", "५"})
        EXPECT_FALSE(ParseListingNumber(bad)) << bad;
}

TEST(Numbers, NumericValue_TextsOfEveryForm_AreWhatThePlatformTakes) {
    const std::pair<std::optional<double>, std::vector<const char*>> cases[] = {
        {100123, {"100123", " \t100,123 ", "+100123.", "1,001,,.23E2"}},
        {-5, {"-5", "- 5", "5-", "(5)", "( 5 )", "$ -5", "($5)"}},
        {5, {"$5", "5$", "5 + ", ".5e1"}},
        {.5, {".5", "5E-1", "0.,5"}},
        {-1233.45e6, {"($1,23,,3.4,,,5,,E6$)"}},
        {100000, {"1d5", "1,D+5"}},
        {16, {"&H10", "&h10", "&O20", "&20"}},
        {std::nullopt, {"",      " ",     ".",   "-",   "$",    "()",    "(5",  "5)",  "((5))",
                        "--1",   "-1-",   "$$1", "1 2", ",1",   "1.2.3", "12x", "e5",  "1e",
                        "1e5e5", "1e999", "inf", "nan", "0x10", "&",     "&HG", "&O8", "&H11111111111111111",
                        "٥"}}};
    for (const auto& [value, texts] : cases)
        for (const char* text : texts) EXPECT_EQ(NumericValue(text), value) << text;
}

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

}  // namespace lumarin
