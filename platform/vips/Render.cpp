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
        case 2:
            return {fromRight, top, width, height};
        case 3:
            return {fromRight, fromBottom, width, height};
        case 4:
            return {left, fromBottom, width, height};
        case 5:
            return {top, left, height, width};
        case 6:
            return {top, fromBottom, height, width};
        case 7:
            return {fromRight, fromBottom, height, width};
        case 8:
            return {fromRight, left, height, width};
        default:
            return upright;
    }
}

VImage Upright(const VImage& stored, int orientation) {
    switch (orientation) {
        case 2:
            return stored.flip(VIPS_DIRECTION_HORIZONTAL);
        case 3:
            return stored.rot(VIPS_ANGLE_D180);
        case 4:
            return stored.flip(VIPS_DIRECTION_VERTICAL);
        case 5:
            return stored.rot(VIPS_ANGLE_D90).flip(VIPS_DIRECTION_HORIZONTAL);
        case 6:
            return stored.rot(VIPS_ANGLE_D90);
        case 7:
            return stored.rot(VIPS_ANGLE_D90).flip(VIPS_DIRECTION_VERTICAL);
        case 8:
            return stored.rot(VIPS_ANGLE_D270);
        default:
            return stored;
    }
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
        case VIPS_INTERPRETATION_B_W:
            break;
        default:
            image = image.colourspace(VIPS_INTERPRETATION_sRGB);
    }
    return image.flatten(VImage::option()->set("background", std::vector<double>{255}));
}

/// How one side of a cut is reduced: `length` pixels from `start` on are averaged in blocks of `block`, and
/// what that gives is resampled by `shrink`.
struct Reduction {
    int start = 0;
    int length = 0;
    int block = 1;
    double shrink = 1.0;
};

/// Plans the side from `from` to `to`, in pixels and their fractions, of a picture that has `limit` of them.
/// Blocks leave a factor of two to the resampling. That reduces by the exact factor about the middle of its
/// whole pixels, so those are chosen whose middle is nearest to the middle of the cut.
Reduction Plan(double from, double to, int limit, int target) {
    Reduction plan;
    plan.block = std::max(1, static_cast<int>((to - from) / target / 2.0));
    const int blocks = (limit + plan.block - 1) / plan.block;
    const double length = (to - from) / plan.block;
    const double middle = (from + to) / plan.block / 2.0;
    plan.shrink = std::max(1.0, length / target);

    double nearest = 2.0;
    for (int count = std::max(1, static_cast<int>(length));
         count <= std::min(blocks, static_cast<int>(length) + 1); ++count) {
        const int first = std::clamp(static_cast<int>(std::lround(middle - count / 2.0)), 0, blocks - count);
        const double distance = std::abs(first + count / 2.0 - middle);
        if (std::lround(count / plan.shrink) != target || distance >= nearest) continue;
        nearest = distance;
        plan.start = first * plan.block;
        plan.length = std::min(count * plan.block, limit - plan.start);
    }
    return plan;
}

/// Cut and resampling of a picture that is reduced along both sides.
VImage Reduce(const Decoded& decoded, const PixelRect& cut, int width, int height) {
    const VImage& image = decoded.image;
    const double across = decoded.horizontalScale;
    const double down = decoded.verticalScale;
    const Reduction x = Plan(cut.left * across, (cut.left + cut.width) * across, image.width(), width);
    const Reduction y = Plan(cut.top * down, (cut.top + cut.height) * down, image.height(), height);
    VImage part = OnWhite(image.crop(x.start, y.start, x.length, y.length));
    part = part.shrink(x.block, y.block, VImage::option()->set("ceil", true));
    return part.reducev(y.shrink).reduceh(x.shrink);
}

/// Cut and resampling of a picture that is enlarged along a side; it was decoded at its full size.
VImage Enlarge(const Decoded& decoded, const PixelRect& cut, int width, int height) {
    // Enlarging reads its source in any order; what is enlarged is small.
    const VImage part = OnWhite(decoded.image.crop(cut.left, cut.top, cut.width, cut.height)).copy_memory();
    return part.resize(static_cast<double>(width) / cut.width,
                       VImage::option()->set("vscale", static_cast<double>(height) / cut.height));
}

VImage Resample(const Decoded& decoded, const PixelRect& cut, int width, int height) {
    const bool enlarged = width > cut.width || height > cut.height;
    VImage image = enlarged ? Enlarge(decoded, cut, width, height) : Reduce(decoded, cut, width, height);
    if (image.width() == width && image.height() == height) return image;
    return image.embed(0, 0, width, height, VImage::option()->set("extend", VIPS_EXTEND_COPY));
}

VImage FromEmbeddedProfile(const VImage& image) {
    try {
        return image.icc_transform(
            "srgb",
            VImage::option()->set("embedded", true)->set("black_point_compensation", true)->set("depth", 8));
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

}  // namespace

int UprightWidth(const StoredPicture& picture) {
    return LiesOnItsSide(picture) ? picture.Height() : picture.Width();
}

int UprightHeight(const StoredPicture& picture) {
    return LiesOnItsSide(picture) ? picture.Width() : picture.Height();
}

Picture PixelsOf(const VImage& image) {
    std::size_t size = 0;
    const std::unique_ptr<void, decltype(&g_free)> memory(image.write_to_memory(&size), &g_free);
    const auto* bytes = static_cast<const std::uint8_t*>(memory.get());
    return {image.width(), image.height(), {bytes, bytes + size}};
}

Picture Render(const StoredPicture& picture, const PixelRect& cut, int width, int height) {
    const bool inside = cut.left >= 0 && cut.top >= 0 && cut.width > 0 && cut.height > 0 &&
                        cut.width <= UprightWidth(picture) - cut.left &&
                        cut.height <= UprightHeight(picture) - cut.top;
    if (!inside || width <= 0 || height <= 0)
        throw ImagingError(InvalidParameterError, "The cut does not lie inside the photo.");

    const double reduction =
        std::min(static_cast<double>(cut.width) / width, static_cast<double>(cut.height) / height);
    if (LiesOnItsSide(picture)) std::swap(width, height);
    const Decoded decoded = picture.Decode(reduction);
    // From here on the picture is small and in memory: its file has been read, in one pass.
    const VImage small = Resample(decoded, StoredRect(picture, cut), width, height).copy_memory();
    const bool whole = cut.width == UprightWidth(picture) && cut.height == UprightHeight(picture);
    if (decoded.check) decoded.check(whole ? Rows::All : Rows::Read);
    return PixelsOf(ToSrgb(Upright(small, picture.Orientation())));
}

}  // namespace lumarin::vips
