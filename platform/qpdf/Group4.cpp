#include "platform/qpdf/Group4.h"

#include <tiffio.h>
#include <zlib.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "platform/qpdf/PdfError.h"

namespace lumarin::qpdf {

namespace {

[[noreturn]] void RefuseDamaged() { throw PdfError("The page's picture is damaged."); }

/// All rows with their filter bytes.
std::string Inflate(const PngFile& png) {
    std::string filtered((png.RowBytes() + 1) * png.height, '\0');
    z_stream stream{};
    stream.next_in = reinterpret_cast<const Bytef*>(png.data.data());
    stream.avail_in = static_cast<uInt>(std::min<std::size_t>(png.data.size(), UINT_MAX));
    stream.next_out = reinterpret_cast<Bytef*>(filtered.data());
    stream.avail_out = static_cast<uInt>(filtered.size());
    if (inflateInit(&stream) != Z_OK) throw PdfError("The page's picture cannot be unpacked.");
    const int result = inflate(&stream, Z_FINISH);
    inflateEnd(&stream);
    if (result != Z_STREAM_END || stream.avail_out != 0) RefuseDamaged();
    return filtered;
}

std::uint8_t Paeth(int left, int above, int corner) {
    const int byLeft = std::abs(above - corner);
    const int byAbove = std::abs(left - corner);
    const int byCorner = std::abs(left + above - 2 * corner);
    if (byLeft <= byAbove && byLeft <= byCorner) return static_cast<std::uint8_t>(left);
    return static_cast<std::uint8_t>(byAbove <= byCorner ? above : corner);
}

/// Adds to each byte of a row what `predict` makes of the bytes left of it, above, and above left.
template <typename Predict>
void AddPrediction(std::uint8_t* row, const std::uint8_t* above, std::size_t length, Predict predict) {
    std::uint8_t left = 0, corner = 0;
    for (std::size_t x = 0; x < length; ++x) {
        left = row[x] = static_cast<std::uint8_t>(row[x] + predict(left, above[x], corner));
        corner = above[x];
    }
}

/// Takes a filter off a row; pixels of one bit are predicted byte by byte.
void Unfilter(int filter, std::uint8_t* row, const std::uint8_t* above, std::size_t length) {
    switch (filter) {
        case 0:
            return;
        case 1:
            return AddPrediction(row, above, length, [](int left, int, int) { return left; });
        case 2:
            std::transform(row, row + length, above, row,
                           [](int left, int up) { return static_cast<std::uint8_t>(left + up); });
            return;
        case 3:
            return AddPrediction(row, above, length, [](int left, int up, int) { return (left + up) / 2; });
        case 4:
            return AddPrediction(row, above, length, Paeth);
        default:
            RefuseDamaged();
    }
}

/// The file that the packer writes, in memory.
struct MemoryFile {
    std::string bytes;
    std::size_t position = 0;
};

tmsize_t Read(thandle_t handle, void* target, tmsize_t size) {
    auto& file = *static_cast<MemoryFile*>(handle);
    const std::size_t left = file.bytes.size() - std::min(file.position, file.bytes.size());
    const std::size_t count = std::min(left, static_cast<std::size_t>(size));
    std::memcpy(target, file.bytes.data() + (file.bytes.size() - left), count);
    file.position += count;
    return static_cast<tmsize_t>(count);
}

tmsize_t Write(thandle_t handle, void* source, tmsize_t size) {
    auto& file = *static_cast<MemoryFile*>(handle);
    const auto count = static_cast<std::size_t>(size);
    if (file.bytes.size() < file.position + count) file.bytes.resize(file.position + count);
    std::memcpy(file.bytes.data() + file.position, source, count);
    file.position += count;
    return size;
}

toff_t Seek(thandle_t handle, toff_t offset, int origin) {
    auto& file = *static_cast<MemoryFile*>(handle);
    const std::size_t base = origin == SEEK_CUR ? file.position : origin == SEEK_END ? file.bytes.size() : 0;
    file.position = base + static_cast<std::size_t>(offset);
    return file.position;
}

int Close(thandle_t) { return 0; }
toff_t Size(thandle_t handle) { return static_cast<MemoryFile*>(handle)->bytes.size(); }

}  // namespace

std::string UnpackRows(const PngFile& png) {
    std::string rows = Inflate(png);
    const std::size_t length = png.RowBytes();
    const std::string nothing(length, '\0');
    const auto* above = reinterpret_cast<const std::uint8_t*>(nothing.data());
    auto* packed = reinterpret_cast<std::uint8_t*>(rows.data());
    for (std::size_t y = 0; y < png.height; ++y) {
        std::uint8_t* row = packed + y * length;
        const std::uint8_t* filtered = packed + y * (length + 1);
        const int filter = *filtered;
        std::memmove(row, filtered + 1, length);
        Unfilter(filter, row, above, length);
        above = row;
    }
    rows.resize(length * png.height);
    return rows;
}

std::string PackGroup4(std::string rows, std::uint32_t width, std::uint32_t height) {
    // The packer takes a 1 bit as ink.
    for (char& byte : rows) byte = static_cast<char>(~byte);
    MemoryFile file;
    const std::unique_ptr<TIFF, decltype(&TIFFCleanup)> tiff(
        TIFFClientOpen("page", "w", &file, &Read, &Write, &Seek, &Close, &Size, nullptr, nullptr),
        &TIFFCleanup);
    if (tiff == nullptr) throw PdfError("The page's picture cannot be packed.");
    TIFFSetField(tiff.get(), TIFFTAG_IMAGEWIDTH, width);
    TIFFSetField(tiff.get(), TIFFTAG_IMAGELENGTH, height);
    TIFFSetField(tiff.get(), TIFFTAG_ROWSPERSTRIP, height);
    TIFFSetField(tiff.get(), TIFFTAG_BITSPERSAMPLE, 1);
    TIFFSetField(tiff.get(), TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(tiff.get(), TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE);
    TIFFSetField(tiff.get(), TIFFTAG_FILLORDER, FILLORDER_MSB2LSB);
    TIFFSetField(tiff.get(), TIFFTAG_COMPRESSION, COMPRESSION_CCITTFAX4);
    if (TIFFWriteEncodedStrip(tiff.get(), 0, rows.data(), static_cast<tmsize_t>(rows.size())) < 0)
        throw PdfError("The page's picture cannot be packed.");
    const std::uint64_t start = TIFFGetStrileOffset(tiff.get(), 0);
    const std::uint64_t length = TIFFGetStrileByteCount(tiff.get(), 0);
    return file.bytes.substr(start, length);
}

}  // namespace lumarin::qpdf
