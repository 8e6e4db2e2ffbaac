#include "platform/windows/ClipboardBitmap.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>

namespace lumarin {

namespace {

/// As another program does it; nothing is put there without bytes.
void PutOnClipboard(UINT format, const std::string& bytes) {
    ASSERT_TRUE(OpenClipboard(nullptr) && EmptyClipboard());
    if (!bytes.empty()) {
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
        std::memcpy(GlobalLock(memory), bytes.data(), bytes.size());
        GlobalUnlock(memory);
        EXPECT_NE(SetClipboardData(format, memory), nullptr);
    }
    CloseClipboard();
}

std::string Dib(int bits, const std::string& coloursAndRows) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = 2;
    header.biHeight = 1;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(bits);
    return std::string(reinterpret_cast<const char*>(&header), sizeof header) + coloursAndRows;
}

}  // namespace

TEST(ClipboardBitmap, Read_OfAnotherProgram_IsThePictureOrNone) {
    const std::string red("\0\0\xFF\0", 4), blue("\xFF\0\0\0", 4);
    const std::tuple<const char*, UINT, std::string, bool> cases[] = {
        {"32 bits without alpha", CF_DIB, Dib(32, red + blue), true},
        {"24 bits", CF_DIB, Dib(24, red.substr(0, 3) + blue.substr(0, 3) + std::string(2, '\0')), true},
        {"1 bit", CF_DIB, Dib(1, red + blue + std::string("\x40\0\0\0", 4)), true},
        {"cut short", CF_DIB, Dib(24, "x"), false},
        {"text", CF_TEXT, "no picture", false},
        {"nothing", CF_DIB, "", false},
    };
    for (const auto& [name, format, bytes, isPicture] : cases) {
        SCOPED_TRACE(name);
        PutOnClipboard(format, bytes);
        const PicturePtr picture = windows::ClipboardBitmap();
        ASSERT_EQ(picture != nullptr, isPicture);
        if (isPicture) {
            EXPECT_EQ(picture->pixels, (std::vector<std::uint8_t>{255, 0, 0, 0, 0, 255}));
        }
    }
}

}  // namespace lumarin
