#include <functional>

#include "platform_vips/PicturesTest.h"

namespace lumarin {

using namespace samples;

class Opening : public PicturesTest {};

TEST_F(Opening, Format_WhateverItsName_IsReadByContent) {
    const VImage image = Quadrants(64, 40, "RGBW");
    for (const char* format :
         {".jpg[Q=95,subsample-mode=off]", ".jpg[Q=95,interlace]", ".png", ".png[interlace]", ".png[palette]",
          ".tif", ".tif[tile,compression=jpeg,Q=95]", ".webp[lossless]", ".gif", "heif"})
        for (const char* name : {"plan[1,page=9] of house.txt", "plan.jpg"}) {
            SCOPED_TRACE(std::string(format) + " as " + name);
            const bool isHeif = std::string(format) == "heif";
            const auto picture = Open(isHeif ? EncodeHeif(image) : Encode(image, format), name);
            EXPECT_EQ(std::pair(picture->Width(), picture->Height()), std::pair(64, 40));
            EXPECT_EQ(QuadrantsOf(picture->Preview(320, 200)), "RGBW");
            EXPECT_EQ(picture->IsPlainJpeg(), std::string(format).starts_with(".jpg"));
        }
}

TEST_F(Opening, Heic_LibraryCannotDecodeIt_SystemDoes) {
    const std::string whole = EncodeHeif(Quadrants(64, 40, "RGBW"));
    const std::size_t pixels = whole.find("mdat") + 4;
    const std::string damaged = whole.substr(0, pixels) + std::string(whole.size() - pixels, '\0');
    int asked = 0;
    vips::VipsImaging withSystem([&](const std::string& path) {
        ++asked;
        EXPECT_EQ(path, folder / "picture");
        return std::make_shared<Picture>(Picture{1, 1, {1, 2, 3}});
    });
    const std::tuple<const char*, std::string, int, int> cases[] = {
        {"whole", whole, 64, 0},
        {"pixels that it cannot read", damaged, 1, 1},
        {"header too", whole.substr(0, 60), 1, 2}};
    for (const auto& [name, bytes, width, count] : cases) {
        files::WriteWhole(folder / "picture", bytes);
        EXPECT_EQ(withSystem.Open(folder / "picture")->Width(), width) << name;
        EXPECT_EQ(asked, count) << name;
    }
    files::WriteWhole(folder / "picture", "no picture");
    EXPECT_THROW(withSystem.Open(folder / "picture"), ImagingError);
    EXPECT_EQ(asked, 2);
}

TEST_F(Opening, Page_OfATiffFile_IsOpenedByItsNumber) {
    VImage pages = Quadrants(64, 40, "RGBW").join(Quadrants(64, 40, "WBGR"), VIPS_DIRECTION_VERTICAL).copy();
    pages.set("page-height", 40);
    EXPECT_EQ(Open(Encode(pages, ".tif"), "plans")->PageCount(), 2);
    EXPECT_EQ(QuadrantsOf(imaging.OpenPage(folder / "plans", 0)->Preview(64, 40)), "RGBW");
    EXPECT_EQ(QuadrantsOf(imaging.OpenPage(folder / "plans", 1)->Preview(64, 40)), "WBGR");
    EXPECT_THROW(imaging.OpenPage(folder / "plans", 2), ImagingError);
    EXPECT_EQ(Open(Encode(pages, ".gif"))->PageCount(), 1) << "the frames of an animation are not pages";
}

TEST_F(Opening, Orientation_EachOfTheEight_StandsUprightAndCanBeTurned) {
    // Stored quadrants of one upright picture "RGBW", by where its first row and column are seen.
    const char* stored[] = {"RGBW", "GRWB", "WBGR", "BWRG", "RBGW", "GWRB", "WGBR", "BRWG"};
    const std::tuple<const char*, int, int, const char*> turned[] = {{"RGBW", 640, 400, "GGWW"},
                                                                     {"BRWG", 400, 640, "RRGG"},
                                                                     {"WBGR", 640, 400, "BBRR"},
                                                                     {"GWRB", 400, 640, "WWBB"}};
    for (int orientation = 1; orientation <= 8; ++orientation) {
        const bool onItsSide = orientation >= 5;
        VImage image =
            Quadrants(onItsSide ? 400 : 640, onItsSide ? 640 : 400, stored[orientation - 1]).copy();
        image.set("orientation", orientation);
        const auto picture = Open(Encode(image, ".jpg[Q=95]"));
        for (const int quarters : {0, 1, 2, 3, 0}) {
            SCOPED_TRACE(std::to_string(orientation) + " turned " + std::to_string(quarters));
            const auto& [seen, width, height, rightHalf] = turned[quarters];
            picture->Turn({quarters, 0});
            EXPECT_EQ(std::pair(picture->Width(), picture->Height()), std::pair(width, height));
            EXPECT_EQ(picture->IsPlainJpeg(), orientation == 1 && quarters == 0);
            EXPECT_EQ(QuadrantsOf(picture->Preview(width / 16, height / 16)), seen);
            EXPECT_EQ(QuadrantsOf(picture->Preview(width, height)), seen);
            picture->Capture(Order({width / 2, 0, width / 2, height}, 480, 300), Destination());
            EXPECT_EQ(QuadrantsOf(imaging.Open(Destination())->Preview(480, 300)), rightHalf);
        }
    }
}

TEST_F(Opening, ColourModel_Any_BecomesEightBitRgb) {
    const auto converted = [](const VImage& image, const char* profile) {
        return image.icc_transform(profile, VImage::option()->set("input_profile", "srgb"));
    };
    const VImage brown = Plain(160, 100, {200, 120, 40});
    const VImage muted = Plain(160, 100, {150, 120, 100});  // a colour that can be printed
    const VImage grey = As(brown.extract_band(0), VIPS_INTERPRETATION_B_W);
    const VImage deep = (brown.cast(VIPS_FORMAT_USHORT) * 257).cast(VIPS_FORMAT_USHORT);
    const VImage cmyk = converted(muted, "cmyk");
    const VImage wide = converted(brown, "p3");
    VImage bareCmyk = cmyk.copy();
    bareCmyk.remove(VIPS_META_ICC_NAME);
    VImage wrong = brown.copy();
    wrong.set(VIPS_META_ICC_NAME, static_cast<VipsCallbackFn>(nullptr), const_cast<char*>("no profile"), 10);
    const std::tuple<const char*, VImage, const char*, Colour> cases[] = {
        {"half transparent", Plain(160, 100, {200, 120, 40, 128}), ".png", {227, 187, 147}},
        {"grey", grey, ".jpg[Q=95]", {200, 200, 200}},
        {"grey and transparent", grey.bandjoin(0), ".png", {255, 255, 255}},
        {"16 bits", As(deep, VIPS_INTERPRETATION_RGB16), ".png", {200, 120, 40}},
        {"16 bits grey", As(deep.extract_band(1), VIPS_INTERPRETATION_GREY16), ".tif", {120, 120, 120}},
        {"CMYK", cmyk, ".jpg[Q=95]", {150, 120, 100}},
        {"CMYK without profile", bareCmyk, ".tif", {150, 120, 100}},
        {"another profile", wide, ".jpg[Q=95]", {200, 120, 40}},
        {"a profile that is none", wrong, ".png", {200, 120, 40}},
    };
    for (const auto& [name, image, format, expected] : cases) {
        SCOPED_TRACE(name);
        const Picture preview = Open(Encode(image, format))->Preview(80, 50);
        EXPECT_EQ(preview.pixels.size(), 80u * 50u * 3u);
        EXPECT_LE(Distance(At(preview, 40, 25), expected), 7);
    }
}

TEST_F(Opening, File_NoWholePicture_IsRefusedInOneSentence) {
    const VImage image = Detailed(300, 200);
    std::vector<std::pair<std::string, std::string>> cases = {
        {"a text", "This is a letter, not a photo.\n"},
        {"a drawing", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><path d='M0 0'/></svg>"},
        {"a document", "%PDF-1.4\n1 0 obj <</Type /Catalog>> endobj\n"},
        {"a raw bitmap", "P6 9 9 255\n" + std::string(9 * 9 * 3, 'x')},
        {"too many pixels", Encode(VImage::black(16000, 16000), ".png[bitdepth=1,compression=1]")},
    };
    for (const char* format : {".jpg", ".jpg[interlace]", ".png", ".tif", ".webp", ".gif"}) {
        const std::string bytes = Encode(image, format);
        cases.emplace_back(std::string("half a ") + format, bytes.substr(0, bytes.size() / 2));
    }
    for (const auto& [name, bytes] : cases) {
        SCOPED_TRACE(name);
        const std::string reason = testing::ReasonOf([&] { Open(bytes, "picture.jpg")->Preview(320, 213); });
        EXPECT_EQ(reason, "The selected file is not a valid photo.");
    }
}

TEST_F(Opening, Jpeg_WithoutDamage_IsTakenHoweverItEnds) {
    const auto middle = [](std::string jpeg, const std::string& other) {
        return jpeg.replace(jpeg.size() / 20, other.size(), other);
    };
    std::string noise;
    for (unsigned value = 1; noise.size() < 400; value = value * 1103515245U + 12345U)
        noise += static_cast<char>(value >> 16);
    const struct {
        const char* name;
        bool taken;
        std::function<std::string(std::string)> change;
    } cases[] = {
        {"whole", true, [](const std::string& jpeg) { return jpeg; }},
        {"no end marker", true, [](const std::string& jpeg) { return jpeg.substr(0, jpeg.size() - 2); }},
        {"half an end marker", true, [](const std::string& jpeg) { return jpeg.substr(0, jpeg.size() - 1); }},
        {"another file behind it", true, [&](const std::string& jpeg) { return jpeg + noise + jpeg; }},
        {"another revision", true, [](std::string jpeg) { return jpeg.replace(11, 1, "\2"); }},
        {"no last bytes", false, [](const std::string& jpeg) { return jpeg.substr(0, jpeg.size() - 40); }},
        {"noise in it", false, [&](const std::string& jpeg) { return middle(jpeg, noise); }},
        {"zeros in it", false, [&](const std::string& jpeg) { return middle(jpeg, std::string(400, '\0')); }},
        {"an early end", false, [&](const std::string& jpeg) { return middle(jpeg, "\xFF\xD9"); }},
        {"data left over", false,
         [&](const std::string& jpeg) {
             return jpeg.substr(0, jpeg.size() - 2) + std::string(40, 'x') + "\xFF\xD9";
         }},
    };
    const VImage image = Detailed(800, 601);
    for (const char* format : {".jpg", ".jpg[restart_interval=7]", ".jpg[interlace]"}) {
        const std::string jpeg = Encode(image, format);
        const Picture whole = Open(jpeg)->Preview(100, 75);
        for (const auto& row : cases)
            for (const auto& [width, height] : {std::pair{50, 37}, {100, 75}, {320, 240}, {800, 601}}) {
                SCOPED_TRACE(std::string(format) + ", " + row.name + ", " + std::to_string(width));
                Picture seen;
                const auto number = NumberOf([&] { seen = Open(row.change(jpeg))->Preview(width, height); });
                EXPECT_EQ(number, row.taken ? 0 : InvalidPictureError);
                EXPECT_TRUE(!row.taken || width != whole.width || seen.pixels == whole.pixels);
            }
    }
}

TEST_F(Opening, Thumbnail_AnySize_FitsAndIsNeverEnlarged) {
    const std::pair<std::pair<int, int>, std::pair<int, int>> cases[] = {
        {{200, 400}, {50, 100}}, {{80, 40}, {80, 40}}, {{900, 1}, {100, 1}}};
    for (const auto& [size, expected] : cases) {
        Open(Encode(Plain(size.first, size.second, {9, 9, 9}), ".png"));
        EXPECT_EQ(SizeOf(imaging.Thumbnail(folder / "picture", 100)), expected);
    }
}

}  // namespace lumarin
