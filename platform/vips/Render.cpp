#include "platform/vips/Render.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace lumarin::vips {

namespace {

constexpr std::int32_t InvalidParameterError = 20013;

bool LiesOnItsSide(const StoredPicture& picture) { return picture.Orientation() >= 5; }

/// Where a part of the upright picture lies in the stored one.
PixelRect StoredRect(const StoredPicture& picture, const PixelRect& upright) {
    const auto [left, top, width, height] = upright;
    const int fromRight = picture.Width() - (LiesOnItsSide(picture) ? top + height : left + width);
    const int fromBottom = picture.Height() - (LiesOnItsSide(picture) ? left + width : top + height);
    switch (picture.Orientation()) {
        case 2: return {fromRight, top, width, height};
        case 3: return {fromRight, fromBottom, width, height};
        case 4: return {left, fromBottom, width, height};
        case 5: return {top, left, height, width};
        case 6: return {top, fromBottom, height, width};
        case 7: return {fromRight, fromBottom, height, width};
        case 8: return {fromRight, left, height, width};
        default: return upright;
    }
}

VImage Upright(const VImage& stored, int orientation) {
    switch (orientation) {
        case 2: return stored.flip(VIPS_DIRECTION_HORIZONTAL);
        case 3: return stored.rot(VIPS_ANGLE_D180);
        case 4: return stored.flip(VIPS_DIRECTION_VERTICAL);
        case 5: return stored.rot(VIPS_ANGLE_D90).flip(VIPS_DIRECTION_HORIZONTAL);
        case 6: return stored.rot(VIPS_ANGLE_D90);
        case 7: return stored.rot(VIPS_ANGLE_D90).flip(VIPS_DIRECTION_VERTICAL);
        case 8: return stored.rot(VIPS_ANGLE_D270);
        default: return stored;
    }
}

/// One side of a rectangle in the pixels of a reduced picture: start and length, at least one pixel.
std::pair<int, int> ReducedSpan(int start, int length, double scale, int limit) {
    const int from = std::clamp(static_cast<int>(std::lround(start * scale)), 0, limit - 1);
    const int to = std::clamp(static_cast<int>(std::lround((start + length) * scale)), from + 1, limit);
    return {from, to - from};
}

VImage Cut(const Decoded& decoded, const PixelRect& rect) {
    const VImage& image = decoded.image;
    const auto [left, width] = ReducedSpan(rect.left, rect.width, decoded.horizontalScale, image.width());
    const auto [top, height] = ReducedSpan(rect.top, rect.height, decoded.verticalScale, image.height());
    return image.crop(left, top, width, height);
}

// Before resampling, so that the colour of transparent pixels does not bleed into their neighbours.
VImage OnWhite(VImage image) {
    if (!image.has_alpha()) return image;
    switch (image.interpretation()) {
        case VIPS_INTERPRETATION_CMYK:
            return image.flatten(VImage::option()->set("background", std::vector<double>{0}));
        case VIPS_INTERPRETATION_RGB16:
        case VIPS_INTERPRETATION_GREY16:
            return image.flatten(VImage::option()->set("background", std::vector<double>{65535}));
        case VIPS_INTERPRETATION_sRGB:
        case VIPS_INTERPRETATION_RGB:
        case VIPS_INTERPRETATION_B_W: break;
        default: image = image.colourspace(VIPS_INTERPRETATION_sRGB);
    }
    return image.flatten(VImage::option()->set("background", std::vector<double>{255}));
}

VImage Resample(VImage image, int width, int height) {
    // Enlarging reads its source in any order; what is enlarged is small.
    if (width > image.width() || height > image.height()) image = image.copy_memory();
    const double vertical = static_cast<double>(height) / image.height();
    const VImage resized = image.resize(static_cast<double>(width) / image.width(),
                                        VImage::option()->set("vscale", vertical));
    if (resized.width() == width && resized.height() == height) return resized;
    return resized.embed(0, 0, width, height, VImage::option()->set("extend", VIPS_EXTEND_COPY));
}

VImage FromEmbeddedProfile(const VImage& image) {
    try {
        return image.icc_transform("srgb", VImage::option()
                                               ->set("embedded", true)
                                               ->set("black_point_compensation", true)
                                               ->set("depth", 8));
    } catch (const VError&) {
        // A profile that does not fit the pixels says nothing about them.
        vips_error_clear();
        return image;
    }
}

VImage ToSrgb(VImage image) {
    if (image.get_typeof(VIPS_META_ICC_NAME) != 0) image = FromEmbeddedProfile(image);
    image = image.colourspace(VIPS_INTERPRETATION_sRGB);
    if (image.bands() > 3) image = image.extract_band(0, VImage::option()->set("n", 3));
    return image.cast(VIPS_FORMAT_UCHAR);
}

Picture ToPicture(const VImage& image) {
    std::size_t size = 0;
    const std::unique_ptr<void, decltype(&g_free)> memory(image.write_to_memory(&size), &g_free);
    const auto* bytes = static_cast<const std::uint8_t*>(memory.get());
    return {image.width(), image.height(), {bytes, bytes + size}};
}

}  // namespace

int UprightWidth(const StoredPicture& picture) {
    return LiesOnItsSide(picture) ? picture.Height() : picture.Width();
}

int UprightHeight(const StoredPicture& picture) {
    return LiesOnItsSide(picture) ? picture.Width() : picture.Height();
}

Picture Render(const StoredPicture& picture, const PixelRect& cut, int width, int height) {
    const bool inside = cut.left >= 0 && cut.top >= 0 && cut.width > 0 && cut.height > 0 &&
                        cut.width <= UprightWidth(picture) - cut.left &&
                        cut.height <= UprightHeight(picture) - cut.top;
    if (!inside || width <= 0 || height <= 0)
        throw ImagingError(InvalidParameterError, "The cut does not lie inside the photo.");

    const double reduction = std::min(static_cast<double>(cut.width) / width, static_cast<double>(cut.height) / height);
    const VImage part = Cut(picture.Decode(reduction), StoredRect(picture, cut));
    if (LiesOnItsSide(picture)) std::swap(width, height);
    // From here on the picture is small and in memory: its file has been read, in one pass.
    const VImage small = Resample(OnWhite(part), width, height).copy_memory();
    return ToPicture(ToSrgb(Upright(small, picture.Orientation())));
}

}  // namespace lumarin::vips
