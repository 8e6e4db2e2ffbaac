#include "base/Files.h"
#include "platform/vips/VipsImaging.h"
#include "platform_qpdf/PdfJudges.h"

namespace lumarin {

namespace {

using namespace judges;
using namespace samples;

class QpdfDocuments : public QpdfLibraryTest {};

/// Greatest difference of a picture and the part of a page from (left, top) on.
int DifferenceOnPage(const Picture& page, const Picture& picture, int left, int top) {
    int largest = 0;
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            largest = std::max(largest, Distance(At(page, left + x, top + y), At(picture, x, y)));
    return largest;
}

TEST_F(QpdfDocuments, Picture_OfEveryKind_IsSeenPixelForPixelAtItsPlace) {
    const VImage photo = Detailed(203, 157);
    const VImage grey = As(photo.extract_band(0), VIPS_INTERPRETATION_B_W);
    const VImage letters =
        As(VImage::text("Fax 1 bit", VImage::option()->set("font", "Sans 18")->set("dpi", 100)),
           VIPS_INTERPRETATION_B_W);
    const VImage ink = As(letters < 128, VIPS_INTERPRETATION_B_W);
    const VImage grain = As(grey > 128, VIPS_INTERPRETATION_B_W);
    const VImage deep =
        As((photo.cast(VIPS_FORMAT_USHORT) * 257).cast(VIPS_FORMAT_USHORT), VIPS_INTERPRETATION_RGB16);
    const struct {
        const char* name;
        VImage image;
        const char* format;
        const char* judged;  ///< colours, components, bits and packing
        std::int32_t size;
    } cases[] = {
        {"24 bits", photo, ".png[filter=all]", "rgb 3 8 image", PdfLetterPage},
        {"24 bits, plain rows", photo, ".png[filter=none]", "rgb 3 8 image", PdfLegalPage},
        {"grey", grey, ".png[filter=paeth]", "gray 1 8 image", PdfLegalPage},
        {"letters", ink, ".png[bitdepth=1,filter=all]", "gray 1 1 ccitt", PdfLetterPage},
        {"letters on black", letters.invert(), ".png[bitdepth=1]", "gray 1 1 ccitt", PdfLetterPage},
        {"dense dots", grain, ".png[bitdepth=1,filter=up]", "gray 1 1", PdfLetterPage},
        {"one pixel", ink.crop(0, 0, 1, 1), ".png[bitdepth=1]", "gray 1 1", PdfLetterPage},
        {"256 colours", photo, ".png[palette]", "index 1 8 image", PdfLetterPage},
        {"2 colours", Quadrants(90, 40, "RBBR"), ".png[palette,bitdepth=1]", "index 1 1", PdfLegalPage},
        {"16 bits", deep, ".png", "rgb 3 16 image", PdfLetterPage},
    };
    const std::string pdf = folder / "kinds.pdf";
    const PdfHandle handle = library->AdultPdfCreate(pdf);
    for (const auto& row : cases) {
        const std::string png = GivenFile(std::string(row.name) + ".png", Encode(row.image, row.format));
        ASSERT_TRUE(AddPage(handle, png, 82, 31, row.image.width(), row.image.height(), row.size))
            << row.name;
    }
    ASSERT_EQ(library->AdultPdfClose(handle), PdfStatus::Done) << library->LastFailure();

    OutputOf("qpdf --check " + Quoted(pdf));
    const std::vector<std::string> pictures = PicturesOf(pdf);
    ASSERT_EQ(pictures.size(), std::size(cases));
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        SCOPED_TRACE(cases[i].name);
        const auto source = vips::VipsImaging().Open(folder / (std::string(cases[i].name) + ".png"));
        const Picture expected = source->Preview(source->Width(), source->Height());
        const Picture page = Rendered(pdf, static_cast<int>(i) + 1);
        EXPECT_EQ(page.width, 612);
        EXPECT_EQ(page.height, cases[i].size == PdfLetterPage ? 792 : 1008);
        EXPECT_LE(DifferenceOnPage(page, expected, 82, 31), cases[i].format == std::string(".png") ? 1 : 0);
        EXPECT_EQ(At(page, 81, 31), At(page, 0, 0)) << "drawn too far left";
        EXPECT_NE(pictures[i].find("image " + std::to_string(expected.width) + " " +
                                   std::to_string(expected.height) + " " + cases[i].judged),
                  std::string::npos)
            << pictures[i];
    }
}

TEST_F(QpdfDocuments, Document_OpenedAgain_KeepsPagesAndProperties) {
    const struct {
        const char* name;
        std::string between;  ///< what another program does to the file between two batches
        bool newStart;
    } cases[] = {
        {"at once", "", false},
        {"at the next start", "", true},
        {"touched", "touch -d 2001-01-01 ", false},
        {"written anew with its index packed", "qpdf --object-streams=generate --replace-input ", false},
        {"protected", "qpdf --encrypt '' owner 256 -- --replace-input ", true},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const std::string pdf = folder / "CreatePDFTmp.pdf";
        std::vector<std::string> expected;
        for (int batch = 0; batch < 4; ++batch) {
            if (row.newStart) library.emplace();
            const PdfHandle handle = batch == 0 ? library->AdultPdfCreate(pdf) : library->AdultPdfOpen(pdf);
            ASSERT_NE(handle, 0) << library->LastFailure();
            if (batch == 0) {
                library->AdultPdfAddInfo(handle, "100123 PDF", "100123", "Creator", "0",
                                         "Zo\u00EB \u2013 \u65E5");
            }
            for (int page = 0; page <= batch % 2; ++page) {
                const int side = 10 + static_cast<int>(expected.size());
                ASSERT_TRUE(
                    AddPage(handle, GivenFile("page.png", Encode(Plain(side, 9, {5, 9, 200}), ".png"))));
                expected.push_back("image " + std::to_string(side) + " 9 rgb 3 8 image");
            }
            ASSERT_EQ(library->AdultPdfClose(handle), PdfStatus::Done) << library->LastFailure();
            OutputOf("qpdf --check " + Quoted(pdf));
            EXPECT_EQ(PicturesOf(pdf), expected);
            if (!row.between.empty()) OutputOf(row.between + Quoted(pdf));
        }
        const std::string info = OutputOf("pdfinfo " + Quoted(pdf));
        for (const char* line : {"Title:           100123 PDF\n", "Subject:         100123\n",
                                 "Creator:         Creator\n", "Author:          Zo\u00EB \u2013 \u65E5\n"})
            EXPECT_NE(info.find(line), std::string::npos) << info;
        EXPECT_EQ(info.find("Keywords"), std::string::npos);
    }
    library.reset();
    EXPECT_FALSE(files::FileExists(folder / "CreatePDFTmp.pdf.part")) << "something was left beside";
}

TEST_F(QpdfDocuments, Several_AtOnce_StayApartAndRepeatByteForByte) {
    const std::string red = GivenFile("red.png", Encode(Plain(30, 20, {255, 0, 0}), ".png"));
    const std::string blue = GivenFile("blue.png", Encode(Plain(30, 20, {0, 0, 255}), ".png"));
    for (const char* round : {"1", "2"}) {
        const PdfHandle first = library->AdultPdfCreate(folder / (std::string("a") + round));
        const PdfHandle second = library->AdultPdfCreate(folder / (std::string("b") + round));
        EXPECT_EQ(library->AdultPdfOpen(folder / (std::string("a") + round)), 0) << "one file twice";
        EXPECT_TRUE(AddPage(first, red) && AddPage(second, blue) && AddPage(first, blue));
        EXPECT_EQ(library->AdultPdfClose(second), PdfStatus::Done);
        EXPECT_EQ(library->AdultPdfClose(first), PdfStatus::Done);
    }
    EXPECT_EQ(Rendered(folder / "b1", 1).pixels, Rendered(folder / "a1", 2).pixels);
    EXPECT_NE(Rendered(folder / "b1", 1).pixels, Rendered(folder / "a1", 1).pixels);
    EXPECT_EQ(files::ReadAll(folder / "a1"), files::ReadAll(folder / "a2"));
}

}  // namespace

}  // namespace lumarin
