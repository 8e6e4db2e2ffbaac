#include "imaging/Tones.h"

#include <gtest/gtest.h>

#include <numeric>
#include <set>

namespace lumarin {
namespace {

TEST(Tones, Changes_GiveTheDocumentedValues) {
    const struct {
        const char* name;
        int intensity, contrast, before, after;
    } cases[] = {
        {"brighter, black to the middle", 500, 0, 0, 128},    {"brighter keeps white", 500, 0, 255, 255},
        {"darker, white to the middle", -500, 0, 255, 128},   {"more contrast, dark to black", 0, 500, 60, 0},
        {"more contrast keeps the middle", 0, 500, 128, 129}, {"less contrast", 0, -500, 0, 64},
        {"intensity comes first", 500, 500, 50, 202},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MakeToneTable(c.intensity, c.contrast)[static_cast<std::size_t>(c.before)], c.after)
            << c.name;
}

TEST(Tones, WholeRange_ZeroIsPlainAndEveryEndStillShowsAPicture) {
    ToneTable same;
    std::iota(same.begin(), same.end(), std::uint8_t{0});
    EXPECT_EQ(PlainTones(), same);
    for (const int intensity : {-500, 0, 500})
        for (const int contrast : {-500, 0, 500}) {
            const ToneTable table = MakeToneTable(intensity, contrast);
            EXPECT_GE(std::set<int>(table.begin(), table.end()).size(), 60U) << intensity << ", " << contrast;
        }
}

}  // namespace
}  // namespace lumarin
