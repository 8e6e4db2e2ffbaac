#include "platform/sane/PageAssembler.h"

#include <algorithm>
#include <cstring>

#include "imaging/Imaging.h"
#include "imaging/Scanner.h"

namespace lumarin::sane {

namespace {

constexpr int Channels = 3;
constexpr int Passes = 3;
constexpr std::uint8_t White = 255;

void CheckSize(std::int64_t width, std::int64_t height) {
    if (width * height > MaximumPixels)
        throw ScannerError("The scanned picture is too large. Choose a lower resolution or a smaller area.");
}

std::int64_t BytesNeeded(const SANE_Parameters& frame) {
    const std::int64_t channels = frame.format == SANE_FRAME_RGB ? Channels : 1;
    if (frame.depth == 1) return (frame.pixels_per_line + 7) / 8 * channels;
    return std::int64_t{frame.pixels_per_line} * channels * (frame.depth / 8);
}

}  // namespace

void PageAssembler::BeginFrame(const SANE_Parameters& frame) {
    const bool knownDepth = frame.depth == 1 || frame.depth == 8 || frame.depth == 16;
    const bool knownFormat = frame.format >= SANE_FRAME_GRAY && frame.format <= SANE_FRAME_BLUE;
    if (!knownDepth || !knownFormat || frame.pixels_per_line <= 0 ||
        frame.bytes_per_line < BytesNeeded(frame))
        throw ScannerError("The scanner sends pictures of a kind that cannot be read.");
    if (framesBegun_ > 0 && frame.pixels_per_line != picture_.width)
        throw ScannerError("The scanner's colour passes do not fit together.");
    CheckSize(frame.pixels_per_line, std::max(frame.lines, 0));
    frame_ = frame;
    ++framesBegun_;
    lines_ = 0;
    partOfLine_.clear();
    picture_.width = frame.pixels_per_line;
    if (frame.lines > 0)
        picture_.pixels.reserve(std::size_t(frame.lines) * std::size_t(picture_.width) * Channels);
}

void PageAssembler::Add(std::span<const SANE_Byte> bytes) {
    const auto lineLength = static_cast<std::size_t>(frame_.bytes_per_line);
    while (!bytes.empty()) {
        if (partOfLine_.empty() && bytes.size() >= lineLength) {
            AddLine(bytes.data());
            bytes = bytes.subspan(lineLength);
            continue;
        }
        const std::size_t taken = std::min(bytes.size(), lineLength - partOfLine_.size());
        partOfLine_.insert(partOfLine_.end(), bytes.begin(),
                           bytes.begin() + static_cast<std::ptrdiff_t>(taken));
        bytes = bytes.subspan(taken);
        if (partOfLine_.size() < lineLength) return;
        AddLine(partOfLine_.data());
        partOfLine_.clear();
    }
}

void PageAssembler::AddLine(const SANE_Byte* line) {
    const auto width = static_cast<std::size_t>(picture_.width);
    const std::size_t start = static_cast<std::size_t>(lines_) * width * Channels;
    if (picture_.pixels.size() < start + width * Channels) {
        CheckSize(picture_.width, lines_ + 1);
        picture_.pixels.resize(start + width * Channels, White);
    }
    std::uint8_t* pixels = picture_.pixels.data() + start;
    if (frame_.format == SANE_FRAME_RGB && frame_.depth == 8) {
        std::memcpy(pixels, line, width * Channels);
    } else {
        for (int column = 0; column < picture_.width; ++column, pixels += Channels) {
            if (IsBand()) {
                pixels[frame_.format - SANE_FRAME_RED] = Sample(line, column, 0, 1);
            } else if (frame_.format == SANE_FRAME_GRAY) {
                std::fill_n(pixels, Channels, Sample(line, column, 0, 1));
            } else {
                for (int channel = 0; channel < Channels; ++channel)
                    pixels[channel] = Sample(line, column, channel, Channels);
            }
        }
    }
    longestFrame_ = std::max(longestFrame_, ++lines_);
}

std::uint8_t PageAssembler::Sample(const SANE_Byte* line, int column, int channel, int channels) const {
    const int sample = column * channels + channel;
    if (frame_.depth == 8) return line[sample];
    if (frame_.depth == 16) {
        std::uint16_t value = 0;
        std::memcpy(&value, line + std::size_t(sample) * sizeof value,
                    sizeof value);  // in the machine's byte order
        return static_cast<std::uint8_t>((value + 128) / 257);
    }
    // Eight pixels of a channel lie in one byte, leftmost first, and the channels' bytes take turns. A bit
    // that is set is full colour, except on a page in line art, where it is ink.
    const bool isSet = (line[column / 8 * channels + channel] >> (7 - column % 8) & 1) != 0;
    return isSet == (frame_.format != SANE_FRAME_GRAY) ? White : 0;
}

int PageAssembler::Percent() const {
    if (frame_.lines <= 0) return -1;
    const std::int64_t frames = IsBand() ? Passes : 1;
    const std::int64_t linesDone = std::int64_t{framesBegun_ - 1} * frame_.lines + lines_;
    return static_cast<int>(std::clamp<std::int64_t>(linesDone * 100 / (frames * frame_.lines), 0, 100));
}

Picture PageAssembler::Take() {
    if (longestFrame_ == 0) throw ScannerError("The scanner sent no picture.");
    picture_.height = longestFrame_;
    return std::move(picture_);
}

}  // namespace lumarin::sane
