#include "platform_vips/Samples.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace lumarin::samples {

VImage As(const VImage& image, VipsInterpretation meaning) {
    return image.copy(VImage::option()->set("interpretation", meaning));
}

VImage Plain(int width, int height, const std::vector<double>& colour) {
    return As(VImage::black(width, height).new_from_image(colour), VIPS_INTERPRETATION_sRGB);
}

VImage Quadrants(int width, int height, const std::string& letters) {
    std::vector<VImage> parts;
    for (const char letter : letters) {
        const auto band = [&](char own) { return letter == own || letter == 'W' ? 255.0 : 0.0; };
        parts.push_back(Plain(width / 2, height / 2, {band('R'), band('G'), band('B')}));
    }
    return VImage::arrayjoin(parts, VImage::option()->set("across", 2)).cast(VIPS_FORMAT_UCHAR);
}

VImage Detailed(int width, int height) {
    const auto noise = [&](int cell, double strength) {
        return VImage::gaussnoise(width / cell + 2, height / cell + 2,
                                  VImage::option()->set("mean", 0)->set("sigma", strength)->set("seed", cell))
            .resize(cell)
            .crop(0, 0, width, height);
    };
    const VImage luma = noise(60, 35) + noise(12, 20) + noise(3, 12) + 128;
    const VImage bands = VImage::bandjoin({luma, luma + noise(40, 12), luma - noise(50, 12)});
    return As(bands.cast(VIPS_FORMAT_UCHAR), VIPS_INTERPRETATION_sRGB).copy_memory();
}

std::string Encode(const VImage& image, const std::string& format) {
    void* bytes = nullptr;
    std::size_t size = 0;
    image.write_to_buffer(format.c_str(), &bytes, &size);
    const std::unique_ptr<void, decltype(&g_free)> owner(bytes, &g_free);
    return {static_cast<const char*>(bytes), size};
}

std::string EncodeHeif(const VImage& image) {
    vips::LoadHeifReader();  // brings the writer too
    try {
        return Encode(image, ".heic[lossless]");
    } catch (const vips::VError&) {
        vips_error_clear();
        return Encode(image, ".avif[lossless,effort=0]");
    }
}

CaptureOrder Order(const PixelRect& cut, int width, int height) {
    CaptureOrder order;
    order.cut = cut;
    order.width = width;
    order.height = height;
    order.canvasWidth = 480;
    order.canvasHeight = 300;
    for (std::size_t value = 0; value < 256; ++value) order.tones[value] = static_cast<std::uint8_t>(value);
    return order;
}

PicturePtr InMemory(const VImage& image) {
    std::size_t size = 0;
    const std::unique_ptr<void, decltype(&g_free)> owner(image.write_to_memory(&size), &g_free);
    const auto* bytes = static_cast<const std::uint8_t*>(owner.get());
    return std::make_shared<Picture>(Picture{image.width(), image.height(), {bytes, bytes + size}});
}

Colour At(const Picture& picture, int x, int y) {
    const std::uint8_t* pixel = &picture.pixels.at(static_cast<std::size_t>(y * picture.width + x) * 3);
    return {pixel[0], pixel[1], pixel[2]};
}

int Distance(const Colour& left, const Colour& right) {
    int largest = 0;
    for (std::size_t band = 0; band < 3; ++band)
        largest = std::max(largest, std::abs(left[band] - right[band]));
    return largest;
}

std::string QuadrantsOf(const Picture& picture, int divisor) {
    const std::pair<char, Colour> colours[] = {
        {'R', {255, 0, 0}}, {'G', {0, 255, 0}}, {'B', {0, 0, 255}}, {'W', {255, 255, 255}}};
    std::string letters;
    for (const int y : {picture.height / divisor, picture.height - picture.height / divisor})
        for (const int x : {picture.width / divisor, picture.width - picture.width / divisor}) {
            char found = '?';
            for (const auto& [letter, colour] : colours)
                if (Distance(At(picture, x, y), colour) < 6) found = letter;
            letters += found;
        }
    return letters;
}

double MeanDifference(const Picture& left, const Picture& right) {
    if (left.pixels.empty() || left.pixels.size() != right.pixels.size()) return 255.0;
    double sum = 0;
    for (std::size_t i = 0; i < left.pixels.size(); ++i) sum += std::abs(left.pixels[i] - right.pixels[i]);
    return sum / static_cast<double>(left.pixels.size());
}

}  // namespace lumarin::samples
