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

}  // namespace lumarin
