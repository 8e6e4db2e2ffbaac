// bench_pictures FOLDER: draws the inputs: photo-12.jpg, photo-24.jpg and photo-48.jpg, baseline JPEGs of
// that many megapixels with the amount of detail of an outdoor photo (3 to 4 bits per pixel at quality 92 is
// what cameras write), and package/, 26 listings with 26 photos of 480 x 300 each, some 30 KB a photo.

#include <vips/vips8>

#include <filesystem>
#include <iostream>
#include <string>

namespace {

using vips::VImage;

constexpr int ListingCount = 26;
constexpr int PhotosPerListing = 26;

VImage Noise(int width, int height, double sigma, int seed) {
    return VImage::gaussnoise(width, height,
                              VImage::option()->set("mean", 0)->set("sigma", sigma)->set("seed", seed));
}

/// Shapes of several sizes, as walls, trees and grass have them, over the light of a sky.
VImage Scene(int width, int height, double grain, int seed) {
    const auto clouds = [&](int cell, double strength, int salt) {
        const VImage coarse = Noise(width / cell + 2, height / cell + 2, strength, seed + salt);
        return coarse.resize(cell, VImage::option()->set("kernel", VIPS_KERNEL_CUBIC))
            .crop(0, 0, width, height);
    };
    const VImage light = VImage::xyz(width, height).extract_band(1).linear(-90.0 / height, 170);
    const VImage luma = light + clouds(width / 12, 25, 1) + clouds(width / 80, 20, 2) + clouds(8, 14, 3) +
                        clouds(3, 9, 4) + Noise(width, height, grain, seed + 5);
    const VImage tint = clouds(width / 30, 14, 6);
    return VImage::bandjoin({luma, luma + tint * 0.4, luma - tint})
        .cast(VIPS_FORMAT_UCHAR)
        .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
}

void Write(const VImage& image, const std::string& path, int quality) {
    if (std::filesystem::exists(path)) return;
    image.jpegsave((path + ".part").c_str(), VImage::option()->set("Q", quality)->set("strip", true));
    std::filesystem::rename(path + ".part", path);
}

/// Windows into one scene.
void WritePackageFiles(const std::string& folder) {
    std::filesystem::create_directories(folder);
    const VImage scene = Scene(480 + 60 * ListingCount, 300 + 40 * PhotosPerListing, 9, 1).copy_memory();
    for (int listing = 0; listing < ListingCount; ++listing)
        for (int photo = 0; photo < PhotosPerListing; ++photo) {
            const std::string name =
                std::to_string(100100 + listing) + static_cast<char>('a' + photo) + ".jpg";
            Write(scene.crop(60 * listing, 40 * photo, 480, 300), folder + "/" + name, 75);
        }
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2 || VIPS_INIT(arguments[0]) != 0) return 2;
    const std::string folder = arguments[1];
    try {
        std::filesystem::create_directories(folder);
        Write(Scene(4000, 3000, 4, 12), folder + "/photo-12.jpg", 92);
        Write(Scene(6000, 4000, 4, 24), folder + "/photo-24.jpg", 92);
        Write(Scene(8000, 6000, 4, 48), folder + "/photo-48.jpg", 92);
        WritePackageFiles(folder + "/package");
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
