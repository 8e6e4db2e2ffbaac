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

/// Red and blue.
std::string Dib() {
    const BITMAPINFOHEADER header{
        .biSize = sizeof header, .biWidth = 2, .biHeight = 1, .biPlanes = 1, .biBitCount = 24};
    const std::string row("\0\0\xFF\xFF\0\0\0\0", 8);
    return std::string(reinterpret_cast<const char*>(&header), sizeof header) + row;
}

}  // namespace

TEST(ClipboardBitmap, Read_OfAnotherProgram_IsThePictureOrNone) {
    const std::tuple<const char*, UINT, std::string, bool> cases[] = {
        {"picture", CF_DIB, Dib(), true},
        {"cut short", CF_DIB, Dib().substr(0, 42), false},
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
