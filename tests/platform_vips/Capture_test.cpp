#include "platform_vips/PicturesTest.h"

namespace lumarin {

using namespace samples;

class Capture : public PicturesTest {
protected:
    Picture Captured(SourcePicture& source, const CaptureOrder& order) {
        source.Capture(order, Destination());
        const auto result = imaging.Open(Destination());
        EXPECT_EQ(std::pair(result->Width(), result->Height()),
                  std::pair(order.canvasWidth, order.canvasHeight));
        return result->Preview(result->Width(), result->Height());
    }
};

TEST_F(Capture, ReducedDecoding_OfAnyCut_LooksLikeFullResolution) {
    const VImage image = Detailed(2403, 1607);
    const auto full = imaging.FromMemory(InMemory(image));
    const PixelRect cuts[] = {{0, 51, 2403, 1502}, {333, 205, 1601, 1001}, {1717, 1201, 400, 250}};
    // The second format also halves the resolution of colours.
    for (const auto& [format, limit] : {std::pair{".jpg[Q=95]", 3.0}, std::pair{".webp[Q=95]", 4.0}}) {
        SCOPED_TRACE(format);
        const auto reduced = Open(Encode(image, format));
        for (const PixelRect& cut : cuts) {
            const CaptureOrder order = Order(cut, 480, 300);
            EXPECT_LT(MeanDifference(Captured(*reduced, order), Captured(*full, order)), limit) << cut.left;
        }
        for (const int width : {75, 149, 300}) {  // decoded at an eighth, a quarter or half of the size
            const int height = width * 2 / 3;
            EXPECT_LT(MeanDifference(reduced->Preview(width, height), full->Preview(width, height)), limit);
        }
    }
}

TEST_F(Capture, Photo_BesideTheCanvas_IsCutOffAndTonesChangeItAlone) {
    const std::tuple<const char*, int, int, const char*> cases[] = {
        {"overhang left", 240, 0, "WRWR"},
        {"overhang right and below", -240, -150, "RWWW"},
        {"overhang above", 0, 150, "WWRR"},
        {"nothing left", 480, 300, "WWWW"}};
    const auto source = imaging.FromMemory(InMemory(Plain(64, 40, {50, 60, 70})));
    CaptureOrder order = Order({0, 0, 64, 40}, 480, 300);
    order.tones.fill(0);
    order.tones[50] = 255;
    for (const auto& [name, left, top, seen] : cases) {
        order.left = left;
        order.top = top;
        EXPECT_EQ(QuadrantsOf(Captured(*source, order), 16), seen) << name;
    }
}

TEST_F(Capture, CrookedPicture_Straightened_LooksAsTheStraightOne) {
    const VImage straight = Detailed(1600, 1200);
    for (const double degrees : {10.0, -4.5}) {
        const VImage crooked = straight.rotate(-degrees);
        const auto source = imaging.FromMemory(
            InMemory(crooked.crop((crooked.width() - 900) / 2, (crooked.height() - 600) / 2, 900, 600)));
        source->Turn({0, degrees});
        const int width = source->Width(), height = source->Height();
        EXPECT_NEAR(width * 600.0 / 900, height, 1.5);
        const VImage part = straight.crop((1600 - width) / 2, (1200 - height) / 2, width, height);
        const auto expected = imaging.FromMemory(InMemory(part));
        const PixelRect cuts[] = {{0, 0, width, height}, {width / 2, height / 3, 240, 150}};
        for (const PixelRect& cut : cuts)
            EXPECT_LT(
                MeanDifference(source->Photo(Order(cut, 240, 150)), expected->Photo(Order(cut, 240, 150))),
                3.0)
                << degrees << " at " << cut.left;
    }
}

TEST_F(Capture, Caption_InTheCorner_KeepsTheRest) {
    const auto source = imaging.FromMemory(InMemory(Plain(64, 40, {20, 40, 60})));
    CaptureOrder order = Order({0, 0, 64, 40}, 480, 300);
    const Picture without = Captured(*source, order);
    order.caption = "<Sample> & Co";
    const Picture with = Captured(*source, order);

    int left = 480, top = 300, brightest = 0;
    for (int y = 0; y < 300; ++y)
        for (int x = 0; x < 480; ++x) {
            if (Distance(At(with, x, y), At(without, x, y)) <= 16) continue;
            left = std::min(left, x);
            top = std::min(top, y);
            brightest = std::max(brightest, At(with, x, y)[1]);
        }
    EXPECT_NEAR(left, 400, 40);
    EXPECT_GT(top, 270);
    EXPECT_NEAR(brightest, 200, 25);
    order.caption = "  ";
    EXPECT_EQ(MeanDifference(Captured(*source, order), without), 0.0);
    order.caption = std::string(200, 'W');
    const Picture cut = Captured(*source, order);
    const auto changed = [&](int x) {
        int largest = 0;
        for (int y = 280; y < 300; ++y)
            largest = std::max(largest, Distance(At(cut, x, y), At(without, x, y)));
        return largest > 16;
    };
    EXPECT_FALSE(changed(1)) << "the text has lost its beginning";
    EXPECT_TRUE(changed(10) && changed(479));
}

TEST_F(Capture, Heic_OnceSeen_IsNotDecodedAgain) {
    const auto source = Open(EncodeHeif(Detailed(640, 400)));
    source->Preview(320, 200);
    files::WriteWhole(folder / "picture", "gone");
    EXPECT_EQ(Captured(*source, Order({0, 0, 640, 400}, 480, 300)).width, 480);
}

TEST_F(Capture, File_FromCameraPicture_IsBaselineWithoutMetadata) {
    VImage image = Detailed(640, 400).icc_transform("p3", VImage::option()->set("input_profile", "srgb"));
    image.set("exif-ifd0-Make", "Camera maker (Camera maker, ASCII, 13 components, 13 bytes)");
    image.set("exif-ifd3-GPSLatitude", "52/1 31/1 0/1 (52, 31, 0, Rational, 3 components, 24 bytes)");
    const std::string camera = Encode(image, ".jpg");
    ASSERT_NE(camera.find("Exif"), std::string::npos);
    ASSERT_NE(camera.find("ICC_PROFILE"), std::string::npos);

    Open(camera)->Capture(Order({0, 0, 640, 400}, 480, 300), Destination());

    const std::string bytes = files::ReadAll(Destination());
    for (const char* trace :
         {"Exif", "ICC_PROFILE", "http:", "Camera", "\xFF\xE1", "\xFF\xE2", "\xFF\xED", "\xFF\xFE"})
        EXPECT_EQ(bytes.substr(0, 620).find(trace), std::string::npos) << trace;
    EXPECT_NE(bytes.find("\xFF\xC0"), std::string::npos) << "not baseline";
}

TEST_F(Capture, QualityFactor_ScalesTheQuantizationTables) {
    const auto source = imaging.FromMemory(InMemory(Detailed(480, 300)));
    // The standard table's first step is 16.
    for (const auto& [factor, firstStep] : {std::pair{35, 8}, {70, 16}, {0, 1}, {140, 32}, {7, 2}}) {
        CaptureOrder order = Order({0, 0, 480, 300}, 480, 300);
        order.jpegQualityFactor = factor;
        source->Capture(order, Destination());
        const std::string bytes = files::ReadAll(Destination());
        EXPECT_EQ(bytes[bytes.find("\xFF\xDB") + 5], firstStep) << factor;
    }
}

TEST_F(Capture, Failure_WhileReadingOrWriting_LeavesTheDestinationAlone) {
    files::WriteWhole(Destination(), "older photo");
    const std::string jpeg = Encode(Detailed(480, 300), ".jpg");
    for (const bool isCut : {true, false}) {
        const auto source = Open(jpeg.substr(0, isCut ? jpeg.size() / 2 : jpeg.size()));
        const std::string to = isCut ? Destination() : folder / "missing/100123a.jpg";
        EXPECT_EQ(NumberOf([&] {
                      source->Capture(Order({0, 0, 480, 300}, 480, 300), to);
                  }),
                  isCut ? InvalidPictureError : PictureWriteError);
    }
    EXPECT_EQ(files::ReadAll(Destination()), "older photo");
    EXPECT_FALSE(files::FileExists(files::UnfinishedName(Destination())));
}

}  // namespace lumarin
