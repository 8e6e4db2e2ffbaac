// bench_pages FOLDER: draws the inputs. colour/ holds 100 pages in colour, a photo and a scanned sheet in
// turn, bilevel/ 100 sheets of one bit per pixel, as a document's pages are written. sources/ holds one
// picture of each kind, before it is made a page: photo.jpg, sheet.png and screenshot.png.

#include <vips/vips8>

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <random>
#include <string>

#include "platform/vips/VipsImaging.h"

namespace {

using lumarin::PageColours;
using lumarin::PageOrder;
using lumarin::vips::VipsImaging;
using ::vips::VImage;

constexpr int PageCount = 100;
constexpr int SheetWidth = 2550;  // 8.5 x 11 inches at 300 dots per inch
constexpr int SheetHeight = 3300;

VImage Noise(int width, int height, double sigma, int seed) {
    return VImage::gaussnoise(width, height,
                              VImage::option()->set("mean", 0)->set("sigma", sigma)->set("seed", seed));
}

VImage AsColours(const VImage& image) {
    return image.cast(VIPS_FORMAT_UCHAR)
        .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
}

/// Light, shapes of three sizes and the grain of a camera.
VImage Photo(int width, int height, int seed) {
    const auto shapes = [&](int cell, double strength, int salt) {
        return Noise(width / cell + 2, height / cell + 2, strength, seed * 10 + salt)
            .resize(cell, VImage::option()->set("kernel", VIPS_KERNEL_CUBIC))
            .crop(0, 0, width, height);
    };
    const VImage luma = VImage::xyz(width, height).extract_band(1).linear(-90.0 / height, 170) +
                        shapes(width / 12, 30, 1) + shapes(width / 80, 20, 2) + shapes(8, 12, 3) +
                        Noise(width, height, 4, seed);
    const VImage tint = shapes(width / 30, 14, 4);
    return AsColours(VImage::bandjoin({luma, luma + tint * 0.4, luma - tint}));
}

/// Paragraphs of words that nobody has to read.
std::string Words(int count, int seed) {
    std::mt19937 random(static_cast<unsigned>(seed));
    std::string words;
    for (int i = 0; i < count; ++i) {
        for (auto length = 2 + random() % 9; length > 0; --length)
            words += static_cast<char>('a' + random() % 26);
        words += i % 90 == 89 ? ".\n\n" : i % 12 == 11 ? ", " : " ";
    }
    return words;
}

VImage TextMask(int words, int dotsPerInch, int width, int height, int seed) {
    const VImage text = VImage::text(Words(words, seed).c_str(), VImage::option()
                                                                     ->set("font", "Liberation Serif 11")
                                                                     ->set("dpi", dotsPerInch)
                                                                     ->set("width", width * 8 / 10));
    const VImage cut = text.crop(0, 0, text.width(), std::min(text.height(), height * 8 / 10));
    return cut.embed(width / 10, height / 10, width, height);
}

/// Black letters on paper, a little soft and grainy, as a scanner sees them.
VImage Sheet(int height) {
    const VImage ink = TextMask(height / 5, 300, SheetWidth, height, 1).gaussblur(1.2);
    const VImage luma = ink.linear(-0.82, 238) + Noise(SheetWidth, height, 2.5, 1);
    return AsColours(VImage::bandjoin({luma, luma, luma - 6}));
}

/// Flat areas with letters and no grain at all.
VImage Screenshot() {
    VImage screen = VImage::black(1920, 1200).new_from_image({236, 240, 244}).copy_memory();
    screen.draw_rect({40, 80, 160}, 0, 0, 1920, 60, VImage::option()->set("fill", true));
    for (int row = 0; row < 12; ++row)
        screen.draw_rect({255, 255, 255}, 40, 100 + row * 88, 420 + row * 100, 70,
                         VImage::option()->set("fill", true));
    const VImage ink = TextMask(300, 96, 1920, 1200, 7).linear(-1.0 / 255, 1);
    return AsColours(screen * ink);
}

lumarin::PicturePtr InMemory(const VImage& image) {
    std::size_t size = 0;
    const std::unique_ptr<void, decltype(&g_free)> owner(image.write_to_memory(&size), &g_free);
    const auto* bytes = static_cast<const std::uint8_t*>(owner.get());
    return std::make_shared<lumarin::Picture>(
        lumarin::Picture{image.width(), image.height(), {bytes, bytes + size}});
}

void WritePages(const std::string& folder, PageColours colours) {
    if (std::filesystem::exists(folder)) return;
    std::filesystem::create_directories(folder + ".part");
    const VImage photo = Photo(2000 + 20 * PageCount, 1500 + 10 * PageCount, 1).copy_memory();
    const VImage sheet = Sheet(SheetHeight + 60 * PageCount).copy_memory();
    VipsImaging imaging;
    for (int page = 0; page < PageCount; ++page) {
        const bool isPhoto = colours == PageColours::Colour && page % 2 == 0;
        const VImage image = isPhoto ? photo.crop(20 * page, 10 * page, 2000, 1500)
                                     : sheet.crop(0, 60 * page, SheetWidth, SheetHeight);
        PageOrder order{1275, isPhoto ? 956 : 1650, colours};
        if (colours == PageColours::BlackAndWhite) order = {SheetWidth, SheetHeight, colours};
        char name[16];
        std::snprintf(name, sizeof name, "/%03d.png", page + 1);
        imaging.FromMemory(InMemory(image))->WritePage(order, folder + ".part" + name);
    }
    std::filesystem::rename(folder + ".part", folder);
}

void WriteSources(const std::string& folder) {
    std::filesystem::create_directories(folder);
    Photo(4000, 3000, 1).jpegsave((folder + "/photo.jpg").c_str(), VImage::option()->set("Q", 92));
    Sheet(SheetHeight).pngsave((folder + "/sheet.png").c_str());
    Screenshot().pngsave((folder + "/screenshot.png").c_str());
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    const std::string folder = arguments[1];
    try {
        // The imaging port starts the library with the readers that it needs.
        VipsImaging().FromMemory(std::make_shared<lumarin::Picture>(lumarin::Picture{1, 1, {0, 0, 0}}));
        std::filesystem::create_directories(folder);
        if (!std::filesystem::exists(folder + "/sources/screenshot.png")) WriteSources(folder + "/sources");
        WritePages(folder + "/colour", PageColours::Colour);
        WritePages(folder + "/bilevel", PageColours::BlackAndWhite);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
