// bench_document build PDF FOLDER: makes a document of all the folder's PNG files, in one batch.
// bench_document grow PDF FOLDER PAGES: makes one page by page, each opened, added and closed, and prints the
// median milliseconds of five additions that end with the 10th page and of five that end with the last.
// bench_document page PDF PICTURE colour|bilevel: prints the milliseconds of making a page's picture, adding
// it and closing the document.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "platform/qpdf/QpdfLibrary.h"
#include "platform/vips/VipsImaging.h"

namespace {

using namespace lumarin;
using lumarin::qpdf::QpdfLibrary;

void Check(const QpdfLibrary& library, bool done) {
    if (!done) throw Error(1, "bench_document", library.LastFailure());
}

std::vector<std::string> PicturesIn(const std::string& folder) {
    std::vector<std::string> paths;
    for (const std::string& name : files::List(folder, [](const std::string&) { return true; }))
        paths.push_back(folder + "/" + name);
    if (paths.empty()) throw FileError("read", folder, "no pictures in it");
    return paths;
}

void AddPage(QpdfLibrary& library, PdfHandle handle, const std::string& picture) {
    const auto set = [&](PdfFunction function, int first, int second, const char* third, const char* fourth) {
        Check(library,
              library.AdultPdfSetFunction(handle, function, first, second, third, fourth) == PdfStatus::Done);
    };
    set(PdfFunction::PageSize, PdfLetterPage, PdfLetterPage, "0", "0");
    set(PdfFunction::PlaceImage, 27, 27, "558", "722");
    Check(library, library.AdultPdfAddImage(handle, picture) == PdfStatus::Done);
    set(PdfFunction::PageSize, 0, 0, "0", "0");
}

void AddBatch(QpdfLibrary& library, PdfHandle handle, const std::vector<std::string>& pictures) {
    Check(library, handle != 0);
    for (const std::string& picture : pictures) AddPage(library, handle, picture);
    Check(library, library.AdultPdfClose(handle) == PdfStatus::Done);
}

double Milliseconds(const std::function<void()>& step) {
    const auto start = std::chrono::steady_clock::now();
    step();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void Grow(const std::string& pdf, const std::vector<std::string>& pictures, std::size_t pages) {
    QpdfLibrary library;
    std::vector<double> times;
    for (std::size_t page = 0; page < pages; ++page)
        times.push_back(Milliseconds([&] {
            const PdfHandle handle = page == 0 ? library.AdultPdfCreate(pdf) : library.AdultPdfOpen(pdf);
            AddBatch(library, handle, {pictures[page % pictures.size()]});
        }));
    std::printf("%.2f %.2f\n", Median({times.begin() + 5, times.begin() + 10}),
                Median({times.end() - 5, times.end()}));
}

void OnePage(const std::string& pdf, const std::string& picture, PageColours colours) {
    QpdfLibrary library;
    vips::VipsImaging imaging;
    const std::string page = pdf + ".png";
    const auto source = imaging.Open(picture);
    const bool bilevel = colours == PageColours::BlackAndWhite;
    const double scale = std::min(
        {1.0, (bilevel ? 2550.0 : 1275.0) / source->Width(), (bilevel ? 4200.0 : 2100.0) / source->Height()});
    const PageOrder order{RoundToWhole(source->Width() * scale), RoundToWhole(source->Height() * scale),
                          colours};
    const double written = Milliseconds([&] { source->WritePage(order, page); });
    const auto length = files::FileLength(page);
    const double added = Milliseconds([&] { AddBatch(library, library.AdultPdfCreate(pdf), {page}); });
    std::printf("%.1f %.1f %llu\n", written, added, static_cast<unsigned long long>(length));
}

}  // namespace

int main(int count, char** arguments) {
    const std::vector<std::string> words(arguments + 1, arguments + count);
    try {
        if (words.size() == 3 && words[0] == "build") {
            QpdfLibrary library;
            AddBatch(library, library.AdultPdfCreate(words[1]), PicturesIn(words[2]));
        } else if (words.size() == 4 && words[0] == "grow") {
            Grow(words[1], PicturesIn(words[2]), std::max<std::size_t>(10, std::stoul(words[3])));
        } else if (words.size() == 4 && words[0] == "page") {
            OnePage(words[1], words[2],
                    words[3] == "bilevel" ? PageColours::BlackAndWhite : PageColours::Colour);
        } else {
            return 2;
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
