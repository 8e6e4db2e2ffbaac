#include "host/server/Jpeg.h"

#include <cstddef>
#include <cstdint>

namespace host {

namespace {

constexpr std::uint8_t MarkerStart = 0xFF;
constexpr std::uint8_t StartOfImage = 0xD8;
constexpr std::uint8_t EndOfImage = 0xD9;
constexpr std::uint8_t StartOfScan = 0xDA;

bool IsFrameHeader(std::uint8_t marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

}  // namespace

bool IsWholeJpeg(std::string_view bytes) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
    if (bytes.size() < 4 || byte(0) != MarkerStart || byte(1) != StartOfImage) return false;
    bool hasFrame = false;
    for (std::size_t at = 2; at + 4 <= bytes.size();) {
        if (byte(at) != MarkerStart) return false;
        const std::uint8_t marker = byte(at + 1);
        if (marker == MarkerStart) {  // Padding before a marker.
            ++at;
            continue;
        }
        const std::size_t length = static_cast<std::size_t>(byte(at + 2)) << 8 | byte(at + 3);
        if (marker < 0xC0 || marker == EndOfImage || length < 2 || at + 2 + length > bytes.size())
            return false;
        hasFrame = hasFrame || IsFrameHeader(marker);
        at += 2 + length;
        if (marker == StartOfScan) return hasFrame && bytes.find("\xFF\xD9", at) != std::string_view::npos;
    }
    return false;
}

}  // namespace host
