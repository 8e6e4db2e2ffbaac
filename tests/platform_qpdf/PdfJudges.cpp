#include "platform_qpdf/PdfJudges.h"

#include <array>
#include <cstdio>
#include <sstream>

#include "base/Files.h"
#include "platform/vips/VipsImaging.h"

namespace lumarin::judges {

std::string OutputOf(const std::string& command) {
    std::string output;
    std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    std::array<char, 4096> block{};
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), pipe))
        output.append(block.data(), count);
    EXPECT_EQ(pclose(pipe), 0) << command << "\n" << output.substr(0, 2000);
    return output;
}

std::string Quoted(const std::string& path) { return "'" + path + "'"; }

std::vector<std::string> PicturesOf(const std::string& pdf) {
    std::istringstream lines(OutputOf("pdfimages -list " + Quoted(pdf)));
    std::vector<std::string> pictures;
    std::string line, page, number, field;
    for (int i = 0; std::getline(lines, line); ++i) {
        if (i < 2) continue;  // the heading
        std::istringstream fields(line);
        fields >> page >> number;
        std::string picture;
        for (int column = 0; column < 7 && fields >> field; ++column)
            picture += (column > 0 ? " " : "") + field;
        pictures.push_back(picture);
    }
    return pictures;
}

Picture Rendered(const std::string& pdf, int page) {
    // The other renderer of this family stretches pictures to whole pixels and one more.
    const std::string number = std::to_string(page);
    OutputOf("pdftocairo -png -singlefile -r 72 -f " + number + " -l " + number + " " + Quoted(pdf) + " " +
             Quoted(pdf));
    const auto rendered = vips::VipsImaging().Open(pdf + ".png");
    return rendered->Preview(rendered->Width(), rendered->Height());
}

std::string QpdfLibraryTest::GivenFile(const std::string& name, const std::string& bytes) {
    files::WriteWhole(folder / name, bytes);
    return folder / name;
}

bool QpdfLibraryTest::AddPage(PdfHandle handle, const std::string& png, int left, int top, int width,
                              int height, std::int32_t size) {
    const auto set = [&](PdfFunction function, int first, int second, const std::string& third,
                         const std::string& fourth) {
        return library->AdultPdfSetFunction(handle, function, first, second, third, fourth) ==
               PdfStatus::Done;
    };
    const bool begun = set(PdfFunction::PageSize, size, size, "0", "0");
    const bool placed =
        set(PdfFunction::PlaceImage, left, top, std::to_string(width), std::to_string(height));
    const bool added = library->AdultPdfAddImage(handle, png) == PdfStatus::Done;
    const std::string reason = library->LastFailure();
    const bool ended = set(PdfFunction::PageSize, 0, 0, "0", "0");
    EXPECT_TRUE(added || !ended) << "a page without its picture was kept: " << reason;
    return begun && placed && added && ended;
}

std::string QpdfLibraryTest::GivenDocument(const std::string& name) {
    const std::string png = GivenFile("given.png", samples::Encode(samples::Detailed(40, 30), ".png"));
    const PdfHandle handle = library->AdultPdfCreate(folder / name);
    EXPECT_TRUE(AddPage(handle, png));
    EXPECT_EQ(library->AdultPdfClose(handle), PdfStatus::Done) << library->LastFailure();
    return folder / name;
}

}  // namespace lumarin::judges
