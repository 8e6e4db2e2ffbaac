#include <algorithm>

#include "platform_vips/PicturesTest.h"

namespace lumarin {

namespace {

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
    VImage stored = Quadrants(640, 400, "GWRB").copy();
    stored.set("orientation", 8);
    stored.set("exif-ifd0-ImageDescription", "private");
    const auto source = Open(Encode(stored, ".jpg[Q=95]"));
    const struct {
        const char* name;
        PageOrder order;
        int bits;
    } cases[] = {
        {"colour", {200, 320, PageColors::Color}, 24},
        {"colour, its own size", {400, 640, PageColors::Color}, 24},
        {"grey", {200, 320, PageColors::Gray}, 8},
        {"black and white", {201, 321, PageColors::BlackAndWhite}, 1},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const VImage page = Written(*source, row.order);
        EXPECT_EQ(std::pair(page.width(), page.height()), SizeOf(row.order));
        const std::string png = files::ReadAll(Destination());
        EXPECT_EQ(BitsPerPixel(png), row.bits);
        for (const char* chunk : {"eXIf", "iCCP", "tEXt", "iTXt", "zTXt", "tIME", "tRNS"})
            EXPECT_EQ(png.find(chunk), std::string::npos) << chunk;
        const auto brightness = [&](double x, double y) {
            const std::vector<double> pixel =
                page.getpoint(static_cast<int>(x * page.width()), static_cast<int>(y * page.height()));
            return *std::min_element(pixel.begin(), pixel.end());
        };
        // White lies in the quarter that is the upper right one of the upright picture's left side.
        EXPECT_EQ(brightness(0.25, 0.25), 255);
        EXPECT_LT(brightness(0.75, 0.3) + brightness(0.25, 0.8) + brightness(0.76, 0.8), 3 * 255);
    }
}

TEST_F(Page, BlackAndWhite_LettersInAnyLight_AreInkOnPlainPaper) {
    const VImage letters =
        VImage::text("Seller's Disclosure\nLot 12, Block 7, 1 1/2 baths\nSigned this day",
                     VImage::option()->set("font", "Liberation Serif 11")->set("dpi", 300));
    const VImage ink = letters.embed(120, 100, letters.width() + 240, letters.height() + 1200).copy_memory();
    const VImage shade =
        VImage::xyz(ink.width(), ink.height()).extract_band(0).linear(-0.45 / ink.width(), 1);
    const struct {
        const char* name;
        VImage image;
    } cases[] = {
        {"a good scan", OnPaper(ink, 240, 210)},
        {"a shadow", (OnPaper(ink, 240, 210) * shade).cast(VIPS_FORMAT_UCHAR)},
        {"pencil", OnPaper(ink, 235, 90)},
        {"a coloured sheet", OnPaper(ink, 190, 170)},
        {"nothing", OnPaper(VImage::black(ink.width(), ink.height()), 236, 0)},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const auto source = imaging.FromMemory(InMemory(row.image));
        const VImage page = Written(*source, {ink.width(), ink.height(), PageColors::BlackAndWhite});
        const VImage expected =
            row.name == std::string("nothing") ? VImage::black(ink.width(), ink.height()) : ink;
        const double share = ((page < 128) != (expected > 128)).avg() / 255;
        EXPECT_LT(share, 0.004) << "of the pixels are wrong";
    }
}

TEST_F(Page, BlackAndWhite_Photo_KeepsItsLightAndShade) {
    const VImage photo = Detailed(600, 400);
    const auto source = imaging.FromMemory(InMemory(photo));
    const VImage page = Written(*source, {600, 400, PageColors::BlackAndWhite});
    const VImage grey = photo.colourspace(VIPS_INTERPRETATION_B_W).shrink(25, 25);
    EXPECT_LT((page.shrink(25, 25) - grey).abs().avg(), 6);
    EXPECT_GT(grey.deviate(), 15) << "there is no light and shade";
}

TEST_F(Page, Failure_WhileReadingOrWriting_LeavesTheOldFile) {
    files::WriteWhole(Destination(), "older");
    const std::string whole = Encode(Detailed(300, 200), ".png");
    const auto half = Open(whole.substr(0, whole.size() / 2));
    EXPECT_THROW(half->WritePage({30, 20, PageColors::Gray}, Destination()), ImagingError);
    const auto source = imaging.FromMemory(InMemory(Plain(9, 9, {1, 2, 3})));
    EXPECT_THROW(source->WritePage({9, 9, PageColors::Color}, folder / "missing/page.png"), ImagingError);
    EXPECT_THROW(source->WritePage({9, 0, PageColors::Color}, Destination()), ImagingError);
    EXPECT_EQ(files::ReadAll(Destination()), "older");
}

}  // namespace

}  // namespace lumarin
