#include "platform/vips/Finish.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "base/Text.h"
#include "platform/vips/Library.h"

namespace lumarin::vips {

namespace {

constexpr std::uint8_t White = 255;
constexpr std::uint8_t TextGrey = 200;
constexpr std::uint8_t ShadowGrey = 100;
constexpr int SmallestText = 8;     // pixels
constexpr int LinesPerCanvas = 27;  // a photo of 300 rows gets text of 11 pixels

/// Offset of the first byte of row `y` from column `x` on.
std::size_t PixelAt(const Picture& picture, int x, int y) {
    return (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
            static_cast<std::size_t>(x)) *
           3;
}

/// How the text covers its rectangle: 0 not at all, 255 fully. Markup characters stand for themselves.
VImage TextMask(const std::string& text, int pixels) {
    const std::unique_ptr<char, decltype(&g_free)> valid(g_utf8_make_valid(text.c_str(), -1), &g_free);
    const std::unique_ptr<char, decltype(&g_free)> plain(g_markup_escape_text(valid.get(), -1), &g_free);
    const std::string font = "Arial " + std::to_string(pixels);
    return VImage::text(plain.get(), VImage::option()->set("font", font.c_str())->set("dpi", 72))
        .copy_memory();
}

void Blend(Picture& picture, const VImage& mask, int left, int top, std::uint8_t grey) {
    for (int y = std::max(0, -top); y < mask.height() && top + y < picture.height; ++y)
        for (int x = std::max(0, -left); x < mask.width() && left + x < picture.width; ++x) {
            const int cover = *VIPS_IMAGE_ADDR(mask.get_image(), x, y);
            std::uint8_t* pixel = &picture.pixels[PixelAt(picture, left + x, top + y)];
            for (int band = 0; band < 3; ++band)
                pixel[band] =
                    static_cast<std::uint8_t>((pixel[band] * (255 - cover) + grey * cover + 127) / 255);
        }
}

/// The factor scales the standard tables, 35 standing for half of their steps; the library takes the same
/// scale as a quality from 1 to 100.
int QualityOf(int factor) {
    const double percent = std::max(0, factor) * 50.0 / 35.0;
    const double quality = percent <= 100.0 ? (200.0 - percent) / 2.0 : 5000.0 / percent;
    return std::clamp(static_cast<int>(std::lround(quality)), 1, 100);
}

/// The JFIF header, which the library leaves out together with the metadata. It stands behind the two bytes
/// that start the file.
std::string JfifHeader() {
    using namespace std::string_literals;
    return "\xFF\xE0\0\x10JFIF\0\1\1\0\0\1\0\1\0\0"s;
}

}  // namespace

Picture OnCanvas(const Picture& photo, const CaptureOrder& order) {
    Picture canvas{order.canvasWidth, order.canvasHeight, {}};
    canvas.pixels.assign(PixelAt(canvas, 0, order.canvasHeight), White);
    const int left = std::max(0, order.left);
    const int right = std::min(canvas.width, order.left + photo.width);
    const int top = std::max(0, order.top);
    const int bottom = std::min(canvas.height, order.top + photo.height);
    for (int y = top; y < bottom && left < right; ++y) {
        const std::uint8_t* row = &photo.pixels[PixelAt(photo, left - order.left, y - order.top)];
        std::copy_n(row, std::size_t{3} * static_cast<std::size_t>(right - left),
                    canvas.pixels.begin() + static_cast<std::ptrdiff_t>(PixelAt(canvas, left, y)));
    }
    return canvas;
}

void DrawCaption(Picture& picture, const std::string& caption) {
    if (text::Trim(caption).empty()) return;
    const int size = std::max(SmallestText, picture.height / LinesPerCanvas);
    const VImage mask = TextMask(caption, size);
    const int margin = size / 2;
    // A caption that is too long loses its end.
    const int left = std::max(margin, picture.width - margin - mask.width());
    const int top = std::max(0, picture.height - margin - mask.height());
    Blend(picture, mask, left + 1, top + 1, ShadowGrey);
    Blend(picture, mask, left, top, TextGrey);
}

std::string EncodeJpeg(const Picture& picture, const CaptureOrder& order) {
    void* bytes = nullptr;
    std::size_t size = 0;
    const VImage image = ImageOver(picture);
    if (vips_jpegsave_buffer(image.get_image(), &bytes, &size, "Q", QualityOf(order.jpegQualityFactor),
                             "strip", TRUE, "optimize_coding", TRUE, nullptr) != 0)
        throw VError();
    const std::unique_ptr<void, decltype(&g_free)> owner(bytes, &g_free);
    std::string jpeg(static_cast<const char*>(bytes), size);
    return jpeg.insert(2, JfifHeader());
}

}  // namespace lumarin::vips
