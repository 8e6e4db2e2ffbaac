#include "platform/qpdf/QpdfLibrary.h"

#include <charconv>
#include <exception>
#include <new>
#include <utility>

#include "platform/qpdf/PdfDocument.h"
#include "platform/qpdf/PdfError.h"

namespace lumarin::qpdf {

namespace {

int WholeNumber(const std::string& text) {
    int number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc() || end != text.data() + text.size())
        throw PdfError("\"" + text + "\" is not a whole number of points.");
    return number;
}

void SetPageSize(PdfDocument& document, std::int32_t first, std::int32_t second) {
    if (first != second) throw PdfError("A page has one page size, not two.");
    if (first == 0)
        document.EndPage();
    else if (first == PdfLetterPage)
        document.BeginPage({612, 792});
    else if (first == PdfLegalPage)
        document.BeginPage({612, 1008});
    else
        throw PdfError("There is no page size " + std::to_string(first) + ".");
}

}  // namespace

QpdfLibrary::QpdfLibrary() = default;
QpdfLibrary::~QpdfLibrary() = default;

template <typename Step>
PdfStatus QpdfLibrary::Guarded(Step step) {
    failure_.clear();
    try {
        step();
        return PdfStatus::Done;
    } catch (const std::bad_alloc&) {
        failure_ = "There is not enough memory for the document.";
    } catch (const std::exception& error) {
        failure_ = error.what();
    }
    return PdfStatus::Failed;
}

PdfStatus QpdfLibrary::Load(const std::string&) {
    return Guarded([] {});
}

// Two documents of one file would each write it without the other's pages.
void QpdfLibrary::RefuseOpenPath(const std::string& path) const {
    for (const auto& [handle, document] : documents_)
        if (document->Path() == path) throw PdfError("The file \"" + path + "\" is being written already.");
}

PdfHandle QpdfLibrary::Begin(std::unique_ptr<PdfDocument> document) {
    documents_[++lastHandle_] = std::move(document);
    return lastHandle_;
}

PdfHandle QpdfLibrary::AdultPdfCreate(const std::string& path) {
    PdfHandle handle = 0;
    Guarded([&] {
        RefuseOpenPath(path);
        closed_.reset();
        handle = Begin(PdfDocument::Create(path));
    });
    return handle;
}

PdfHandle QpdfLibrary::AdultPdfOpen(const std::string& path) {
    PdfHandle handle = 0;
    Guarded([&] {
        RefuseOpenPath(path);
        const bool goesOn = closed_ && closed_->Path() == path && closed_->CanGoOn();
        if (!goesOn) closed_.reset();
        handle = Begin(goesOn ? std::move(closed_) : PdfDocument::Open(path));
    });
    return handle;
}

PdfDocument& QpdfLibrary::DocumentOf(PdfHandle handle) {
    const auto found = documents_.find(handle);
    if (found == documents_.end())
        throw PdfError("There is no open document " + std::to_string(handle) + ".");
    return *found->second;
}

PdfStatus QpdfLibrary::AdultPdfAddInfo(PdfHandle handle, const std::string& title, const std::string& subject,
                                       const std::string& creator, const std::string& keywords,
                                       const std::string& author) {
    return Guarded([&] {
        PdfDocument& document = DocumentOf(handle);
        document.SetInfo("/Title", title);
        document.SetInfo("/Subject", subject);
        document.SetInfo("/Creator", creator);
        document.SetInfo("/Keywords", keywords == "0" ? "" : keywords);
        document.SetInfo("/Author", author);
    });
}

PdfStatus QpdfLibrary::AdultPdfSetFunction(PdfHandle handle, PdfFunction function, std::int32_t first,
                                           std::int32_t second, const std::string& third,
                                           const std::string& fourth) {
    return Guarded([&] {
        PdfDocument& document = DocumentOf(handle);
        if (function == PdfFunction::PageSize)
            SetPageSize(document, first, second);
        else if (function == PdfFunction::PlaceImage)
            document.Place({first, second, WholeNumber(third), WholeNumber(fourth)});
        else
            throw PdfError("There is no function " + std::to_string(static_cast<std::int32_t>(function)) +
                           ".");
    });
}

PdfStatus QpdfLibrary::AdultPdfAddImage(PdfHandle handle, const std::string& imagePath) {
    return Guarded([&] { DocumentOf(handle).AddPicture(imagePath); });
}

PdfStatus QpdfLibrary::AdultPdfClose(PdfHandle handle) {
    return Guarded([&] {
        DocumentOf(handle);
        // Taken out first: the handle is gone whatever happens.
        std::unique_ptr<PdfDocument> document = std::move(documents_.extract(handle).mapped());
        document->Write();
        if (document->CanGoOn()) closed_ = std::move(document);
    });
}

}  // namespace lumarin::qpdf
