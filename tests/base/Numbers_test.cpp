#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/Error.h"

namespace lumarin {

TEST(Numbers, RoundToWhole_Halves_GoToEven) {
    const std::pair<double, int> cases[] = {{0.5, 0},  {1.5, 2},   {2.5, 2},
                                            {-0.5, 0}, {-1.5, -2}, {299.4999, 299}};
    for (const auto& [value, expected] : cases) EXPECT_EQ(RoundToWhole(value), expected) << value;
    EXPECT_THROW(RoundToWhole(3e9), Error);
    EXPECT_THROW(RoundToWhole(std::nan("")), Error);
}

TEST(Numbers, ParseListingNumber_OnlyPlainPositiveNumbers_AreTaken) {
    EXPECT_EQ(ParseListingNumber("100123"), 100123);
    EXPECT_EQ(ParseListingNumber("2147483647"), 2147483647);
    for (const char* bad :
         {"", "0", "0123", "-5", "+5", " 5", "5 ", "5;DROP", "1e3", "2147483648", "1,2", "५"})
        EXPECT_FALSE(ParseListingNumber(bad)) << bad;
}

TEST(Numbers, LeadingInteger_SettingsValues_ReadAsThePlatformDoes) {
    const std::pair<const char*, int> cases[] = {{"12", 12}, {" 7 photos", 7}, {"-3", -3},
                                                 {"x9", 0},  {"", 0},          {"4294967297", 1}};
    for (const auto& [value, expected] : cases) EXPECT_EQ(LeadingInteger(value), expected) << value;
}

TEST(Numbers, SingleText_Positions_AreShortest) {
    EXPECT_EQ(SingleText(2415.5F), "2415.5");
    EXPECT_EQ(SingleText(1830), "1830");
    EXPECT_EQ(SingleText(-500), "-500");
    EXPECT_EQ(SingleText(0.1F), "0.1");
}

}  // namespace lumarin
