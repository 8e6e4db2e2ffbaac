#include "platform/dib/DibReader.h"

#include "support/Reason.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace lumarin::dib {

using Words = std::vector<std::uint32_t>;

/// Header and what follows, as words of 32 bits.
std::string GivenDib(std::uint32_t width, int height, std::uint32_t bits, std::uint32_t compression,
                     std::uint32_t colours, const Words& rest, std::uint32_t headerLength = 40) {
    Words words{headerLength, width, static_cast<std::uint32_t>(height), bits << 16 | 1, compression, 0, 0, 0,
                colours,      0};
    words.insert(words.end(), rest.begin(), rest.end());
    return {reinterpret_cast<const char*>(words.data()), words.size() * sizeof words.front()};
}

Picture Read(const std::string& bytes) { return ReadDib(std::as_bytes(std::span(bytes))); }

TEST(DibReader, EveryDepth_GivesTheSamePicture) {
    // Red and white above blue and black.
    const std::vector<std::uint8_t> expected{255, 0, 0, 255, 255, 255, 0, 0, 255, 0, 0, 0};
    const Words palette{0x000000, 0xFFFFFF, 0xFF0000, 0x0000FF};
    const auto withPalette = [&](const Words& rows) {
        Words all = palette;
        all.insert(all.end(), rows.begin(), rows.end());
        return all;
    };
    Words longHeader(17);
    longHeader[0] = 0xFF, longHeader[1] = 0xFF00, longHeader[2] = 0xFF0000;  // masks within the header
    longHeader.insert(longHeader.end(), {0xFF0000, 0, 0xFF, 0xFFFFFF});
    const std::pair<const char*, std::string> cases[] = {
        {"4 bits", GivenDib(2, 2, 4, 0, 4, withPalette({0x30, 0x21}))},
        {"8 bits", GivenDib(2, 2, 8, 0, 4, withPalette({0x0003, 0x0102}))},
        {"16 bits", GivenDib(2, 2, 16, 0, 0, {0x0000001F, 0x7FFF7C00})},
        {"16 bits with masks", GivenDib(2, 2, 16, 3, 0, {0xF800, 0x7E0, 0x1F, 0x0000001F, 0xFFFFF800})},
        {"24 bits, palette as a hint", GivenDib(2, 2, 24, 0, 4, withPalette({0xFF, 0, 0xFFFF0000, 0xFFFF}))},
        {"32 bits", GivenDib(2, 2, 32, 0, 0, {0xFF, 0, 0xFF0000, 0xFFFFFF})},
        {"32 bits, masks in a long header", GivenDib(2, 2, 32, 3, 0, longHeader, 108)},
        {"from the top", GivenDib(2, -2, 32, 0, 0, {0xFF0000, 0xFFFFFF, 0xFF, 0})},
    };
    for (const auto& [name, bytes] : cases) EXPECT_EQ(Read(bytes).pixels, expected) << name;
}

TEST(DibReader, BlackAndWhite_PaletteSaysWhichBitIsInk) {
    const std::vector<std::uint8_t> ink{0, 0, 0, 255, 255, 255};
    const std::string bytes = GivenDib(2, 1, 1, 0, 0, {0xFFFFFF, 0x000000, 0x80});
    EXPECT_EQ(Read(bytes).pixels, ink);
    EXPECT_EQ(Read(bytes.substr(0, bytes.size() - 3)).pixels, ink) << "last row not filled up";
}

TEST(DibReader, HeaderThatLies_IsRefused) {
    const char* cut = "The picture is cut short.";
    const char* kind = "The picture is of a kind that cannot be read.";
    const struct {
        const char *name, *reason;
        std::string bytes;
    } cases[] = {
        {"nothing", cut, ""},
        {"one row too few", cut, GivenDib(2, 2, 32, 0, 0, {0, 0, 0})},
        {"huge palette", cut, GivenDib(1, 1, 8, 0, 0xFFFFFFFF, Words(300))},
        {"huge header", cut, GivenDib(1, 1, 32, 0, 0, {0}, 0xFFFFFFF0)},
        {"no masks", cut, GivenDib(1, 1, 32, 3, 0, {})},
        {"smallest height", "The picture is too large.", GivenDib(2, INT32_MIN, 1, 0, 0, Words(10))},
        {"negative width", kind, GivenDib(0xFFFFFFFF, 1, 32, 0, 0, {0})},
        {"mask with a gap", kind, GivenDib(1, 1, 32, 3, 0, {0xF0F, 0xFF, 0xFF, 0})},
        {"compressed", kind, GivenDib(1, 1, 8, 1, 0, Words(300))},
        {"48 bits", kind, GivenDib(1, 1, 48, 0, 0, {0, 0})},
    };
    for (const auto& row : cases)
        EXPECT_EQ(testing::ReasonOf([&] { Read(row.bytes); }), row.reason) << row.name;
}

}  // namespace lumarin::dib
