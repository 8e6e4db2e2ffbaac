#include "host/demo/AviWriter.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace host {

namespace {

constexpr std::uint32_t HasIndex = 0x10;
constexpr std::uint32_t KeyFrame = 0x10;
constexpr std::string_view FrameChunk = "00dc";

std::string LittleEndian(std::uint32_t value, int bytes) {
    std::string out;
    for (int i = 0; i < bytes; ++i) out += static_cast<char>((value >> (8 * i)) & 0xFF);
    return out;
}
std::string Double(std::uint32_t value) { return LittleEndian(value, 4); }
std::string Word(std::uint32_t value) { return LittleEndian(value, 2); }

/// Chunks start at even offsets.
std::string Chunk(std::string_view kind, const std::string& content) {
    std::string out = std::string(kind) + Double(static_cast<std::uint32_t>(content.size())) + content;
    if (content.size() % 2 != 0) out += '\0';
    return out;
}

std::string List(std::string_view kind, const std::string& content) {
    return Chunk("LIST", std::string(kind) + content);
}

std::uint32_t LargestFrame(const Animation& animation) {
    std::size_t largest = 0;
    for (const std::string& frame : animation.frames) largest = std::max(largest, frame.size());
    return static_cast<std::uint32_t>(largest);
}

std::string Headers(const Animation& animation) {
    const auto frames = static_cast<std::uint32_t>(animation.frames.size());
    const auto rate = static_cast<std::uint32_t>(animation.framesPerSecond);
    const auto width = static_cast<std::uint32_t>(animation.width);
    const auto height = static_cast<std::uint32_t>(animation.height);
    const std::uint32_t largest = LargestFrame(animation);
    const std::string file = Double(1'000'000 / rate) + Double(largest * rate) + Double(0) +
                             Double(HasIndex) + Double(frames) + Double(0) + Double(1) + Double(largest) +
                             Double(width) + Double(height) + std::string(16, '\0');
    const std::string stream = "vidsMJPG" + Double(0) + Double(0) + Double(0) + Double(1) + Double(rate) +
                               Double(0) + Double(frames) + Double(largest) + Double(0xFFFFFFFF) + Double(0) +
                               Word(0) + Word(0) + Word(width) + Word(height);
    const std::string bitmap = Double(40) + Double(width) + Double(height) + Word(1) + Word(24) + "MJPG" +
                               Double(width * height * 3) + std::string(16, '\0');
    return List("hdrl", Chunk("avih", file) + List("strl", Chunk("strh", stream) + Chunk("strf", bitmap)));
}

}  // namespace

std::string AviBytes(const Animation& animation) {
    std::string movie;
    std::string index;
    for (const std::string& frame : animation.frames) {
        // Offsets in the index count from the list's kind, four bytes before the first frame.
        index += std::string(FrameChunk) + Double(KeyFrame) +
                 Double(static_cast<std::uint32_t>(movie.size() + 4)) +
                 Double(static_cast<std::uint32_t>(frame.size()));
        movie += Chunk(FrameChunk, frame);
    }
    return Chunk("RIFF", "AVI " + Headers(animation) + List("movi", movie) + Chunk("idx1", index));
}

}  // namespace host
