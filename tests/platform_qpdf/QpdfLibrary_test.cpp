#include <gtest/gtest.h>

#include <optional>

#include "base/Files.h"
#include "platform/qpdf/QpdfLibrary.h"
#include "platform/vips/VipsImaging.h"
#include "platform_vips/Samples.h"
#include "support/Command.h"

namespace lumarin {

using namespace samples;
using testing::OutputOf;

/// "type width height colour components bits packing" of every picture, a line each; fails for an unsound
/// file.
std::string PicturesOf(const std::string& pdf) {
    OutputOf("qpdf --check " + pdf);
    return OutputOf("pdfimages -list " + pdf + " | awk 'NR > 2 { print $3, $4, $5, $6, $7, $8, $9 }'");
}

/// A page as it looks at 72 dots per inch, so that a pixel is a point.
Picture Rendered(const std::string& pdf, int page) {
    // The other renderer of this family stretches pictures to whole pixels and one more.
    const std::string number = std::to_string(page);
    OutputOf("pdftocairo -png -singlefile -r 72 -f " + number + " -l " + number + " " + pdf + " " + pdf);
    const auto rendered = vips::VipsImaging().Open(pdf + ".png");
    return rendered->Preview(rendered->Width(), rendered->Height());
}

class QpdfLibraryTest : public ::testing::Test {
protected:
    std::string GivenFile(const std::string& name, const std::string& bytes) {
        files::WriteWhole(folder / name, bytes);
        return folder / name;
    }
    /// Makes a page of this picture, up to the step that fails; whether none did.
    bool AddPage(PdfHandle handle, const std::string& png, int left = 27, int top = 27, int width = 558,
                 int height = 738, std::int32_t size = PdfLetterPage) {
        const auto set = [&](PdfFunction function, int first, int second, int third, int fourth) {
            return library->AdultPdfSetFunction(handle, function, first, second, std::to_string(third),
                                                std::to_string(fourth)) == PdfStatus::Done;
        };
        return set(PdfFunction::PageSize, size, size, 0, 0) &&
               set(PdfFunction::PlaceImage, left, top, width, height) &&
               library->AdultPdfAddImage(handle, png) == PdfStatus::Done &&
               set(PdfFunction::PageSize, 0, 0, 0, 0);
    }

    samples::Folder folder;
    const std::string pdf = folder / "CreatePDFTmp.pdf";
    std::optional<qpdf::QpdfLibrary> library{std::in_place};  ///< `emplace` is a new start of the program
};

TEST_F(QpdfLibraryTest, Picture_OfEveryKind_IsSeenPixelForPixelAtItsPlaceOrRefused) {
    const VImage photo = Detailed(203, 157);
    const VImage grey = As(photo.extract_band(0), VIPS_INTERPRETATION_B_W);
    const VImage letters =
        As(VImage::text("Fax 1 bit", VImage::option()->set("font", "Sans 18")->set("dpi", 100)),
           VIPS_INTERPRETATION_B_W);
    const VImage ink = As(letters < 128, VIPS_INTERPRETATION_B_W);
    const VImage dots =
        As(VImage::gaussnoise(203, 157, VImage::option()->set("seed", 3)) > 128, VIPS_INTERPRETATION_B_W);
    const struct {
        const char* name;
        VImage image;
        const char* format;
        const char* judged;  ///< colours, components, bits and packing
        std::int32_t size;
    } cases[] = {
        {"24 bits", photo, ".png[filter=all]", "rgb 3 8 image", PdfLetterPage},
        {"grey", grey, ".png[filter=paeth]", "gray 1 8 image", PdfLegalPage},
        {"letters", ink, ".png[bitdepth=1,filter=all]", "gray 1 1 ccitt", PdfLetterPage},
        {"letters on black", ink.invert(), ".png[bitdepth=1]", "gray 1 1 ccitt", PdfLetterPage},
        {"one pixel", ink.crop(0, 0, 1, 1), ".png[bitdepth=1]", "gray 1 1 ccitt", PdfLetterPage},
        {"dots that fax makes larger", dots, ".png[bitdepth=1,filter=up]", "gray 1 1 image", PdfLetterPage},
        {"256 colours", photo, ".png[palette]", "index 1 8 image", PdfLetterPage},
    };
    const PdfHandle handle = library->AdultPdfCreate(pdf);
    std::string expected;
    for (const auto& row : cases) {
        const std::string png = GivenFile(std::string(row.name) + ".png", Encode(row.image, row.format));
        const int width = row.image.width(), height = row.image.height();
        ASSERT_TRUE(AddPage(handle, png, 82, 31, width, height, row.size)) << row.name;
        expected += "image " + std::to_string(width) + " " + std::to_string(height) + " " + row.judged + "\n";
    }
    const std::string whole = Encode(photo, ".png");
    std::string wrongBit = whole;
    wrongBit[whole.size() / 2] = static_cast<char>(wrongBit[whole.size() / 2] ^ 1);
    for (const std::string& bad : {wrongBit, whole.substr(0, whole.size() / 2), Encode(photo, ".jpg"),
                                   Encode(photo, ".png[interlace]"), Encode(photo.bandjoin(128), ".png")}) {
        EXPECT_FALSE(AddPage(handle, GivenFile("bad.png", bad)));
        EXPECT_NE(library->LastFailure().find("page's picture"), std::string::npos) << library->LastFailure();
    }
    ASSERT_EQ(library->AdultPdfClose(handle), PdfStatus::Done) << library->LastFailure();
    EXPECT_EQ(PicturesOf(pdf), expected) << "the refused ones cost nothing else";

    int number = 0;
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const Picture page = Rendered(pdf, ++number);
        EXPECT_EQ(page.width, 612);
        EXPECT_EQ(page.height, row.size == PdfLetterPage ? 792 : 1008);
        const auto source = vips::VipsImaging().Open(folder / (std::string(row.name) + ".png"));
        const VImage seen = vips::ImageOver(page).crop(82, 31, source->Width(), source->Height());
        EXPECT_TRUE(InMemory(seen)->pixels == source->Preview(source->Width(), source->Height()).pixels);
        EXPECT_EQ(At(page, 81, 31), At(page, 0, 0)) << "drawn too far left";
    }
}

TEST_F(QpdfLibraryTest, Document_OpenedAgain_KeepsPagesAndProperties) {
    const std::tuple<const char*, std::string, bool> cases[] = {
        {"at once", "", false},
        {"at the next start", "", true},
        {"touched", "touch -d 2001-01-01 ", false},
        {"written anew with its index packed", "qpdf --object-streams=generate --replace-input ", false},
        {"protected", "qpdf --encrypt '' owner 256 -- --replace-input ", true},
    };
    for (const auto& [name, between, newStart] : cases) {
        SCOPED_TRACE(name);
        std::string expected;
        for (int batch = 0; batch < 4; ++batch) {
            if (newStart) library.emplace();
            const PdfHandle handle = batch == 0 ? library->AdultPdfCreate(pdf) : library->AdultPdfOpen(pdf);
            ASSERT_NE(handle, 0) << library->LastFailure();
            if (batch == 0)
                library->AdultPdfAddInfo(handle, "100123 PDF", "100123", "Creator", "0",
                                         "Zo\u00EB \u2013 \u65E5");
            const VImage picture = Plain(10 + batch, 9, {5, 9, 200});
            ASSERT_TRUE(AddPage(handle, GivenFile("page.png", Encode(picture, ".png"))));
            expected += "image " + std::to_string(10 + batch) + " 9 rgb 3 8 image\n";
            ASSERT_EQ(library->AdultPdfClose(handle), PdfStatus::Done) << library->LastFailure();
            EXPECT_EQ(PicturesOf(pdf), expected);
            if (!between.empty()) OutputOf(between + pdf);
        }
        const std::string info = OutputOf("pdfinfo " + pdf);
        for (const char* line : {"Title:           100123 PDF\n", "Subject:         100123\n",
                                 "Creator:         Creator\n", "Author:          Zo\u00EB \u2013 \u65E5\n"})
            EXPECT_NE(info.find(line), std::string::npos) << info;
        EXPECT_EQ(info.find("Keywords"), std::string::npos);
    }
    library.reset();
    EXPECT_FALSE(files::FileExists(files::UnfinishedName(pdf))) << "something was left beside";
}

TEST_F(QpdfLibraryTest, Document_OfManyBatches_KeepsToThePromisedOverheads) {
    const std::string png = GivenFile("page.png", Encode(Plain(1275, 2100, {5, 9, 200}), ".png"));
    const std::string author = "Zo\u00EB (\\)\r", title = "100123 PDF";
    std::size_t most = PdfDocumentOverhead + PdfPropertyOverhead * (author.size() + title.size());
    constexpr std::size_t Pages = 300;
    for (std::size_t page = 0; page < Pages; ++page) {
        if (page == 290) library.emplace();  // a new start of the program
        const PdfHandle handle = page == 0 ? library->AdultPdfCreate(pdf) : library->AdultPdfOpen(pdf);
        if (page == 0) library->AdultPdfAddInfo(handle, title, "", "", "0", author);
        ASSERT_TRUE(AddPage(handle, png));
        ASSERT_EQ(library->AdultPdfClose(handle), PdfStatus::Done);
        ASSERT_LE(files::FileLength(pdf), most + files::FileLength(png) + PdfPageOverhead + page);
        most = files::FileLength(pdf);
    }
    library->AdultPdfClose(library->AdultPdfOpen(pdf));
    EXPECT_EQ(files::FileLength(pdf), most) << "nothing was added";
    OutputOf("qpdf --check " + pdf);
    EXPECT_NE(OutputOf("pdfinfo " + pdf).find("Pages:           " + std::to_string(Pages)),
              std::string::npos);
}

}  // namespace lumarin
