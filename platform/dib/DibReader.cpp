#include "platform/dib/DibReader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace lumarin::dib {

namespace {

constexpr std::size_t SmallestHeader = 40;
constexpr std::size_t MasksAt = 40;
constexpr std::size_t EndOfMasks = 52;
constexpr std::uint32_t Uncompressed = 0;
constexpr std::uint32_t WithMasks = 3;
constexpr std::size_t BytesPerColour = 4;
constexpr std::size_t Channels = 3;

using Colour = std::array<std::uint8_t, Channels>;

[[noreturn]] void RefuseKind() {
    throw ImagingError(InvalidPictureError, "The picture is of a kind that cannot be read.");
}

std::uint8_t ByteAt(std::span<const std::byte> bytes, std::size_t at) {
    return std::to_integer<std::uint8_t>(bytes[at]);
}

/// Little-endian. Throws beyond the end.
std::uint32_t NumberAt(std::span<const std::byte> bytes, std::size_t at, int length) {
    if (at + static_cast<std::size_t>(length) > bytes.size()) throw CutShortError();
    std::uint32_t number = 0;
    for (int i = length; i-- > 0;) number = number << 8 | ByteAt(bytes, at + static_cast<std::size_t>(i));
    return number;
}

/// Where one colour stands in a pixel of 16 or 32 bits.
class Channel {
public:
    Channel() = default;
    explicit Channel(std::uint32_t mask) : shift_(std::countr_zero(mask)) {
        if (mask == 0) RefuseKind();
        largest_ = mask >> shift_;
        if ((std::uint64_t{largest_} & (std::uint64_t{largest_} + 1)) != 0) RefuseKind();
    }

    std::uint8_t In(std::uint32_t pixel) const {
        const std::uint32_t value = pixel >> shift_ & largest_;
        if (largest_ == 255) return static_cast<std::uint8_t>(value);
        return static_cast<std::uint8_t>((std::uint64_t{value} * 255 + largest_ / 2) / largest_);
    }

private:
    int shift_ = 0;
    std::uint32_t largest_ = 0;
};

class Dib {
public:
    explicit Dib(std::span<const std::byte> bytes);
    Picture Read() const;

private:
    void ReadSize();
    void ReadMasks(std::uint32_t compression);
    void ReadPalette();
    void ReadRow(std::span<const std::byte> row, std::uint8_t* pixels) const;
    std::size_t ColourAt(std::span<const std::byte> row, std::size_t column) const;

    std::span<const std::byte> bytes_;
    int width_ = 0;
    int height_ = 0;
    bool fromTop_ = false;
    int bits_ = 0;
    std::size_t at_ = 0;  ///< what was read so far
    std::array<Channel, Channels> channels_;
    std::array<Colour, 256> palette_{};
};

Dib::Dib(std::span<const std::byte> bytes) : bytes_(bytes) {
    at_ = NumberAt(bytes_, 0, 4);
    if (at_ < SmallestHeader) RefuseKind();
    if (at_ > bytes_.size()) throw CutShortError();
    ReadSize();
    bits_ = static_cast<int>(NumberAt(bytes_, 14, 2));
    constexpr std::array KnownBits{1, 4, 8, 16, 24, 32};
    if (std::find(KnownBits.begin(), KnownBits.end(), bits_) == KnownBits.end()) RefuseKind();
    ReadMasks(NumberAt(bytes_, 16, 4));
    ReadPalette();
}

void Dib::ReadSize() {
    const auto width = static_cast<std::int32_t>(NumberAt(bytes_, 4, 4));
    const auto height = std::int64_t{static_cast<std::int32_t>(NumberAt(bytes_, 8, 4))};
    fromTop_ = height < 0;
    const std::int64_t rows = fromTop_ ? -height : height;
    if (width <= 0 || rows == 0) RefuseKind();
    if (width * rows > MaximumPixels) throw ImagingError(InvalidPictureError, "The picture is too large.");
    width_ = width;
    height_ = static_cast<int>(rows);
}

void Dib::ReadMasks(std::uint32_t compression) {
    std::array<std::uint32_t, Channels> masks{0xFF0000, 0xFF00, 0xFF};
    if (bits_ == 16) masks = {0x7C00, 0x3E0, 0x1F};
    if (compression == WithMasks && (bits_ == 16 || bits_ == 32)) {
        for (std::size_t i = 0; i < Channels; ++i) masks[i] = NumberAt(bytes_, MasksAt + 4 * i, 4);
        at_ = std::max(at_, EndOfMasks);  // a longer header holds them, the shortest is followed by them
    } else if (compression != Uncompressed) {
        RefuseKind();
    }
    for (std::size_t i = 0; i < Channels; ++i) channels_[i] = Channel(masks[i]);
}

void Dib::ReadPalette() {
    constexpr std::size_t UsedAt = 32;
    std::uint64_t count = NumberAt(bytes_, UsedAt, 4);
    if (count == 0 && bits_ <= 8) count = std::uint64_t{1} << bits_;
    if (count > (bytes_.size() - at_) / BytesPerColour) throw CutShortError();
    const std::size_t read = std::min<std::size_t>(static_cast<std::size_t>(count), palette_.size());
    for (std::size_t i = 0; i < read; ++i)
        for (std::size_t channel = 0; channel < Channels; ++channel)
            palette_[i][channel] = ByteAt(bytes_, at_ + i * BytesPerColour + 2 - channel);
    at_ += static_cast<std::size_t>(count) * BytesPerColour;
}

Picture Dib::Read() const {
    const std::uint64_t bitsPerRow = static_cast<std::uint64_t>(width_) * static_cast<std::uint64_t>(bits_);
    const std::uint64_t distance = (bitsPerRow + 31) / 32 * 4;
    const std::uint64_t length = (bitsPerRow + 7) / 8;
    // Some leave out what fills up the last row.
    const std::uint64_t needed = distance * (static_cast<std::uint64_t>(height_) - 1) + length;
    if (needed > bytes_.size() - at_) throw CutShortError();
    const auto width = static_cast<std::size_t>(width_), height = static_cast<std::size_t>(height_);
    Picture picture{width_, height_, std::vector<std::uint8_t>(width * height * Channels)};
    for (std::size_t y = 0; y < height; ++y) {
        const std::size_t row = fromTop_ ? y : height - 1 - y;
        const std::size_t start = at_ + row * static_cast<std::size_t>(distance);
        ReadRow(bytes_.subspan(start, static_cast<std::size_t>(length)),
                picture.pixels.data() + y * width * Channels);
    }
    return picture;
}

void Dib::ReadRow(std::span<const std::byte> row, std::uint8_t* pixels) const {
    for (std::size_t column = 0; column < static_cast<std::size_t>(width_); ++column, pixels += Channels) {
        if (bits_ <= 8) {
            std::copy_n(palette_[ColourAt(row, column)].data(), Channels, pixels);
        } else if (bits_ == 24) {
            for (std::size_t channel = 0; channel < Channels; ++channel)
                pixels[channel] = ByteAt(row, column * Channels + 2 - channel);
        } else {
            const auto length = static_cast<std::size_t>(bits_) / 8;
            const std::uint32_t pixel = NumberAt(row, column * length, bits_ / 8);
            for (std::size_t channel = 0; channel < Channels; ++channel)
                pixels[channel] = channels_[channel].In(pixel);
        }
    }
}

/// The leftmost of several pixels in a byte stands in its highest bits.
std::size_t Dib::ColourAt(std::span<const std::byte> row, std::size_t column) const {
    const std::size_t bit = column * static_cast<std::size_t>(bits_);
    const int shift = 8 - bits_ - static_cast<int>(bit % 8);
    return static_cast<std::size_t>(ByteAt(row, bit / 8) >> shift & ((1 << bits_) - 1));
}

}  // namespace

Picture ReadDib(std::span<const std::byte> bytes) { return Dib(bytes).Read(); }

}  // namespace lumarin::dib
