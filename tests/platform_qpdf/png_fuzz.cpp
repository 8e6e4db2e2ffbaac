#include <zlib.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "fuzz/Promise.h"
#include "platform/qpdf/Group4.h"
#include "platform/qpdf/PdfError.h"

namespace {

constexpr std::size_t SignatureLength = 8;

std::uint32_t BigEndian(const std::string& bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i) number = number << 8 | static_cast<std::uint8_t>(bytes[at + i]);
    return number;
}

/// With the check sums that its chunks should have, so that changes get past them.
std::string WithRightSums(std::string png) {
    for (std::size_t at = SignatureLength; at + 12 <= png.size();) {
        const std::size_t length = BigEndian(png, at);
        if (length > png.size() - at - 12) break;
        const uLong sum = crc32_z(0, reinterpret_cast<const Bytef*>(png.data() + at + 4), length + 4);
        for (std::size_t i = 0; i < 4; ++i) png[at + 8 + length + i] = static_cast<char>(sum >> (24 - 8 * i));
        at += length + 12;
    }
    return png;
}

void ReadAsPage(const std::string& bytes) {
    using namespace lumarin::qpdf;
    try {
        const PngFile png = ReadPng(bytes);
        PROMISE(!png.data.empty() && png.data.size() <= bytes.size());
        // Small ones only: a few bytes can say that they are a quarter of a billion pixels.
        if (png.bitDepth != 1 || png.height > 4096 || png.RowBytes() > 4096) return;
        std::string rows = UnpackRows(png);
        PROMISE(rows.size() == png.RowBytes() * png.height);
        PROMISE(!PackGroup4(std::move(rows), png.width, png.height).empty());
    } catch (const PdfError&) {
        // The right answer to nearly everything; nothing else may be thrown.
    }
}

}  // namespace

FUZZ(const std::string& bytes) {
    ReadAsPage(bytes);
    ReadAsPage(WithRightSums(bytes));
}
