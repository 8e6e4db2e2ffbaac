#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lumarin::qpdf {

/// What a sample of the picture stands for; the numbers are the file format's.
enum class PngColours : std::uint8_t { Grey = 0, Rgb = 2, Indexed = 3 };

/// A PNG file taken apart; its pixels stay packed.
struct PngFile {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    int bitDepth = 0;
    PngColours colours = PngColours::Grey;
    std::string palette;  ///< three bytes per colour
    std::string data;     ///< the packed rows, each with its filter byte first

    /// Bytes of one unpacked row without its filter byte.
    std::size_t RowBytes() const;
};

/// Takes a PNG file apart and checks its structure and check sums; the packed pixels are not looked into.
/// Throws PdfError for a damaged file and for kinds that a document cannot hold as they are: with
/// transparent parts, interlaced, or with more than 250 million pixels.
PngFile ReadPng(std::string_view bytes);

}  // namespace lumarin::qpdf
