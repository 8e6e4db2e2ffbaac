#include "platform/qpdf/PngFile.h"

#include <zlib.h>

#include "platform/qpdf/PdfError.h"

namespace lumarin::qpdf {

namespace {

constexpr std::string_view Signature = "\x89PNG\r\n\x1A\n";
constexpr std::size_t ChunkOverhead = 12;  // length, name and check sum
constexpr std::uint64_t MostPixels = 250'000'000;
constexpr std::size_t PaletteEntry = 3;
constexpr std::size_t LargestPalette = 256 * PaletteEntry;

[[noreturn]] void RefuseDamaged() { throw PdfError("The page's picture is damaged."); }

std::uint32_t BigEndian(std::string_view bytes) {
    std::uint32_t number = 0;
    for (const char byte : bytes.substr(0, 4)) number = number << 8 | static_cast<std::uint8_t>(byte);
    return number;
}

struct Chunk {
    std::string_view name;
    std::string_view content;
};

/// Takes the next chunk off the front of `rest`.
Chunk TakeChunk(std::string_view& rest) {
    if (rest.size() < ChunkOverhead) RefuseDamaged();
    const std::uint32_t length = BigEndian(rest);
    if (length > rest.size() - ChunkOverhead) RefuseDamaged();
    const std::string_view checked = rest.substr(4, length + 4);
    const uLong sum =
        crc32_z(0, reinterpret_cast<const Bytef*>(checked.data()), static_cast<z_size_t>(checked.size()));
    if (sum != BigEndian(rest.substr(length + 8))) RefuseDamaged();
    rest.remove_prefix(length + ChunkOverhead);
    return {checked.substr(0, 4), checked.substr(4)};
}

bool IsDepthOf(PngColours colours, int depth) {
    const bool small = depth == 1 || depth == 2 || depth == 4;
    switch (colours) {
        case PngColours::Grey:
            return small || depth == 8 || depth == 16;
        case PngColours::Rgb:
            return depth == 8 || depth == 16;
        case PngColours::Indexed:
            return small || depth == 8;
    }
    return false;
}

PngFile ReadHeader(const Chunk& chunk) {
    if (chunk.name != "IHDR" || chunk.content.size() != 13) RefuseDamaged();
    const auto at = [&](std::size_t i) { return static_cast<std::uint8_t>(chunk.content[i]); };
    PngFile png;
    png.width = BigEndian(chunk.content);
    png.height = BigEndian(chunk.content.substr(4));
    png.bitDepth = at(8);
    const int colours = at(9);
    if (png.width == 0 || png.height == 0 || at(10) != 0 || at(11) != 0 || at(12) > 1) RefuseDamaged();
    if (static_cast<std::uint64_t>(png.width) * png.height > MostPixels)
        throw PdfError("The page's picture has too many pixels.");
    if (colours == 4 || colours == 6) throw PdfError("The page's picture has transparent parts.");
    if (at(12) != 0) throw PdfError("The page's picture is interlaced.");
    png.colours = static_cast<PngColours>(colours);
    if (!IsDepthOf(png.colours, png.bitDepth)) RefuseDamaged();
    return png;
}

/// A chunk that says nothing about the pixels: its name's first letter is small.
bool IsForInformation(const Chunk& chunk) { return (chunk.name[0] & 0x20) != 0; }

bool IsPalette(const PngFile& png) {
    return png.palette.size() % PaletteEntry == 0 && !png.palette.empty() &&
           png.palette.size() <= LargestPalette;
}

}  // namespace

std::size_t PngFile::RowBytes() const {
    const std::uint64_t samples = static_cast<std::uint64_t>(width) * (colours == PngColours::Rgb ? 3 : 1);
    return static_cast<std::size_t>((samples * static_cast<unsigned>(bitDepth) + 7) / 8);
}

PngFile ReadPng(std::string_view bytes) {
    if (!bytes.starts_with(Signature)) throw PdfError("The page's picture is not a PNG file.");
    bytes.remove_prefix(Signature.size());
    PngFile png = ReadHeader(TakeChunk(bytes));
    bool dataEnded = false;
    while (true) {
        const Chunk chunk = TakeChunk(bytes);
        if (chunk.name == "IEND") break;
        if (chunk.name == "IDAT") {
            if (dataEnded) RefuseDamaged();
            png.data += chunk.content;
            continue;
        }
        dataEnded = !png.data.empty();
        if (chunk.name == "PLTE" && png.palette.empty() && !dataEnded)
            png.palette = chunk.content;
        else if (chunk.name == "tRNS")
            throw PdfError("The page's picture has transparent parts.");
        else if (!IsForInformation(chunk))
            RefuseDamaged();
    }
    if (png.data.empty() || (png.colours == PngColours::Indexed && !IsPalette(png))) RefuseDamaged();
    return png;
}

}  // namespace lumarin::qpdf
