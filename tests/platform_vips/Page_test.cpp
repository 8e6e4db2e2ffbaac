#include "platform_vips/PicturesTest.h"

namespace lumarin {

using namespace samples;

class Page : public PicturesTest {
protected:
    /// The written file as the library reads it, with all its properties.
    VImage Written(SourcePicture& source, const PageOrder& order) {
        source.WritePage(order, Destination());
        return VImage::new_from_file(Destination().c_str()).copy_memory();
    }
};

int BitsPerPixel(const std::string& png) { return png.at(24) * (png.at(25) == 2 ? 3 : 1); }

VImage OnPaper(const VImage& ink, double paper, double darkness) {
    const VImage grain = VImage::gaussnoise(
        ink.width(), ink.height(), VImage::option()->set("mean", 0)->set("sigma", 2.5)->set("seed", 3));
    const VImage grey = (ink.linear(-darkness / 255, paper) + grain).cast(VIPS_FORMAT_UCHAR);
    return As(VImage::bandjoin({grey, grey, grey}), VIPS_INTERPRETATION_sRGB);
}

TEST_F(Page, File_OfEachColourMode_HasItsBitsAndSizeAndNothingElse) {
    VImage stored = Detailed(400, 640);
    stored.set("exif-ifd0-ImageDescription", "private");
    const auto source = Open(Encode(stored, ".jpg[Q=95]"));
    const std::pair<PageOrder, int> cases[] = {{{200, 320, PageColours::Colour}, 24},
                                               {{200, 320, PageColours::Grey}, 8},
                                               {{201, 321, PageColours::BlackAndWhite}, 1}};
    for (const auto& [order, bits] : cases) {
        SCOPED_TRACE(bits);
        const VImage page = Written(*source, order);
        EXPECT_EQ(std::pair(page.width(), page.height()), SizeOf(order));
        const std::string png = files::ReadAll(Destination());
        EXPECT_EQ(BitsPerPixel(png), bits);
        if (bits == 24) {
            EXPECT_EQ(InMemory(page)->pixels, source->Preview(200, 320).pixels);
        }
        for (const char* chunk : {"eXIf", "iCCP", "tEXt", "iTXt", "zTXt", "tIME", "tRNS"})
            EXPECT_EQ(png.find(chunk), std::string::npos) << chunk;
    }
}

TEST_F(Page, BlackAndWhite_LettersInAnyLight_AreInkOnPlainPaper) {
    const VImage letters =
        VImage::text("Seller's Disclosure\nLot 12, Block 7, 1 1/2 baths\nSigned this day",
                     VImage::option()->set("font", "Liberation Serif 11")->set("dpi", 300));
    const VImage ink = letters.embed(120, 100, letters.width() + 240, letters.height() + 1200).copy_memory();
    const VImage shade =
        VImage::xyz(ink.width(), ink.height()).extract_band(0).linear(-0.45 / ink.width(), 1);
    const VImage nothing = VImage::black(ink.width(), ink.height());
    const std::tuple<const char*, VImage, VImage> cases[] = {
        {"a good scan", OnPaper(ink, 240, 210), ink},
        {"a shadow", (OnPaper(ink, 240, 210) * shade).cast(VIPS_FORMAT_UCHAR), ink},
        {"pencil", OnPaper(ink, 235, 90), ink},
        {"a coloured sheet", OnPaper(ink, 190, 170), ink},
        {"nothing", OnPaper(nothing, 236, 0), nothing},
    };
    for (const auto& [name, image, expected] : cases) {
        const auto source = imaging.FromMemory(InMemory(image));
        const VImage page = Written(*source, {ink.width(), ink.height(), PageColours::BlackAndWhite});
        const double wrong = ((page < 128) != (expected > 128)).avg() / 255;
        EXPECT_LT(wrong, 0.004) << name;
    }
}

TEST_F(Page, BlackAndWhite_Photo_KeepsItsLightAndShade) {
    const VImage photo = Detailed(600, 400);
    const auto source = imaging.FromMemory(InMemory(photo));
    const VImage page = Written(*source, {600, 400, PageColours::BlackAndWhite});
    const VImage grey = photo.colourspace(VIPS_INTERPRETATION_B_W).shrink(25, 25);
    EXPECT_LT((page.shrink(25, 25) - grey).abs().avg(), 6);
    EXPECT_GT(grey.deviate(), 15) << "there is no light and shade";
}

VImage Letters(int dpi, int lines) {
    std::string text;
    for (int i = 0; i < lines; ++i) text += "Seller's Disclosure, Lot 12, Block 7, 1 1/2 baths\n";
    return VImage::text(text.c_str(), VImage::option()->set("font", "Liberation Serif 11")->set("dpi", dpi));
}

TEST_F(Page, BlackAndWhite_PhotoOnAPageOfText_IsDottedAlone) {
    const VImage letters = Letters(300, 8).embed(100, 100, 1300, 1700).copy_memory();
    const VImage pencil = Letters(300, 1).embed(100, 700, 1300, 1700).copy_memory();
    const VImage photo = Detailed(800, 600).colourspace(VIPS_INTERPRETATION_B_W);
    const VImage page = OnPaper(letters + pencil * 0.4, 240, 210).insert(Detailed(800, 600), 200, 950);
    for (const double darkest : {1.0, 0.6}) {
        SCOPED_TRACE(darkest);
        const VImage light =
            VImage::xyz(page.width(), page.height()).extract_band(0).linear((darkest - 1) / page.width(), 1);
        const auto source =
            imaging.FromMemory(InMemory((page * light).cast(VIPS_FORMAT_UCHAR).copy_memory()));
        const VImage written = Written(*source, {page.width(), page.height(), PageColours::BlackAndWhite});
        const VImage wrong = (written < 128) != ((letters + pencil) > 128);
        EXPECT_LT(wrong.crop(0, 0, 1300, 900).avg() / 255, 0.004);
        EXPECT_LT(wrong.crop(0, 1600, 1300, 100).avg() / 255, 0.001) << "the paper is not clean";
        const VImage dots = written.crop(200, 950, 800, 600).shrink(25, 25);
        EXPECT_LT((dots - photo.shrink(25, 25)).abs().avg(), 22) << "lighter by the paper's own grey";
        EXPECT_GT(dots.deviate(), 15);
    }
}

TEST_F(Page, ScannedPage_Skewed_IsStraightenedWhereThatIsSure) {
    const VImage letters = Letters(150, 20).embed(100, 100, 1000, 1300).copy_memory();
    const VImage page = OnPaper(letters, 240, 210);
    const auto turned = [](const VImage& image, double degrees) {
        return image.rotate(degrees, VImage::option()->set("background", std::vector<double>{240}))
            .cast(VIPS_FORMAT_UCHAR);
    };
    const std::tuple<const char*, VImage, double> cases[] = {
        {"to the right", turned(page, 3.37), 3.37},
        {"to the left", turned(page, -9.6), -9.6},
        {"a little", turned(page, 0.6), 0.6},
        {"a page on its side", turned(page.rot90(), -4.2), -4.2},
        {"level", page, 0},
        {"too far", turned(page, 14), 0},
        {"a photo", turned(Detailed(800, 600), 4), 0},
        {"one word", turned(OnPaper(letters.crop(0, 0, 200, 1300), 240, 0), 4), 0}};
    for (const auto& [name, image, skew] : cases) {
        SCOPED_TRACE(name);
        const auto source = imaging.FromMemory(InMemory(image));
        EXPECT_NEAR(source->Look().skew, skew, 0.1);
        if (skew == 0) continue;
        const double inkBefore = (image.extract_band(0) < 128).avg() * image.width() * image.height();
        source->Turn({.degrees = -source->Look().skew, .edges = PictureTurn::Edges::Paper});
        EXPECT_NEAR(source->Look().skew, 0, 0.2);
        const VImage straight = Written(*source, {source->Width(), source->Height(), PageColours::Grey});
        const double ink = (straight < 128).avg() * straight.width() * straight.height();
        EXPECT_NEAR(ink / inkBefore, 1, 0.06) << "something is lost";
        EXPECT_GT(straight.min(), 0) << "a corner is not paper";
    }
}

TEST_F(Page, ScannedPage_WithNothingButDust_IsBlank) {
    const VImage nothing = VImage::black(1275, 1650);
    VImage dust = nothing.copy_memory();
    for (int i = 0; i < 30; ++i) dust.draw_circle({200.0}, 100 + i * 37, 150 + i * i % 1300, 1 + i % 2);
    VImage sheet = dust.copy_memory();
    for (const int y : {500, 1100})
        sheet.draw_circle({200.0}, 60, y, 18, VImage::option()->set("fill", true));
    sheet.draw_line({150.0}, 1271, 0, 1274, 1649);
    const VImage word = Letters(150, 1).crop(0, 0, 90, 20).embed(600, 1560, 1275, 1650);
    const VImage page = Letters(150, 20).embed(100, 100, 1275, 1650);
    const std::tuple<const char*, VImage, bool> cases[] = {
        {"paper", OnPaper(nothing, 235, 0), true},
        {"dust", OnPaper(dust, 235, 200), true},
        {"holes and an edge", OnPaper(sheet, 235, 200), true},
        {"the other side", OnPaper(page, 235, 9), true},
        {"darkness", OnPaper(nothing, 20, 0), false},
        {"one word", OnPaper(word, 235, 200), false},
        {"faint text", OnPaper(page, 235, 28), false}};
    for (const auto& [name, image, isBlank] : cases)
        EXPECT_EQ(imaging.FromMemory(InMemory(image))->Look().isBlank, isBlank) << name;
}

}  // namespace lumarin
