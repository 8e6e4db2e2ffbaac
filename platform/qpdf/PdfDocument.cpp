#include "platform/qpdf/PdfDocument.h"

#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <utility>

#include "base/Files.h"
#include "platform/qpdf/FilePipeline.h"
#include "platform/qpdf/PagePicture.h"
#include "platform/qpdf/PdfError.h"

namespace lumarin::qpdf {

namespace {

using Object = QPDFObjectHandle;

// 1.5 is the first version with 16 bits a colour; all readers of today know it.
constexpr const char* PdfVersion = "1.5";

Object PictureContent(QPDF& pdf, const PageSize& page, const Placement& at) {
    // The document counts from the lower edge.
    const int bottom = page.height - at.top - at.height;
    return Object::newStream(&pdf, "q " + std::to_string(at.width) + " 0 0 " + std::to_string(at.height) +
                                       " " + std::to_string(at.left) + " " + std::to_string(bottom) +
                                       " cm /Picture Do Q\n");
}

Object NumberArray(std::initializer_list<int> numbers) {
    Object array = Object::newArray();
    for (const int number : numbers) array.appendItem(Object::newInteger(number));
    return array;
}

void WriteDocument(QPDF& pdf, const std::string& path) {
    FilePipeline file(path);
    QPDFWriter writer(pdf);
    writer.setOutputPipeline(&file);
    writer.setMinimumPDFVersion(PdfVersion);
    // Everything is packed already; the few bytes of a page's instructions would only grow.
    writer.setStreamDataMode(qpdf_s_preserve);
    writer.setObjectStreamMode(qpdf_o_generate);
    writer.setDeterministicID(true);
    writer.write();
    file.Close();
}

}  // namespace

PdfDocument::PdfDocument(const std::string& path) : path_(path), pdf_(std::make_unique<QPDF>()) {
    // Nobody reads standard error, and a document that has to be guessed at is not added to.
    pdf_->setSuppressWarnings(true);
    pdf_->setAttemptRecovery(false);
}

std::unique_ptr<PdfDocument> PdfDocument::Create(const std::string& path) {
    std::unique_ptr<PdfDocument> document(new PdfDocument(path));
    document->pdf_->emptyPDF();
    TryWriting(files::UnfinishedName(path));
    return document;
}

std::unique_ptr<PdfDocument> PdfDocument::Open(const std::string& path) {
    std::unique_ptr<PdfDocument> document(new PdfDocument(path));
    document->pdf_->processFile(path.c_str());
    document->hasPages_ = !document->pdf_->getAllPages().empty();
    TryWriting(files::UnfinishedName(path));
    return document;
}

void PdfDocument::SetInfo(const std::string& key, const std::string& text) {
    Object trailer = pdf_->getTrailer();
    if (!trailer.getKey("/Info").isDictionary())
        trailer.replaceKey("/Info", pdf_->makeIndirectObject(Object::newDictionary()));
    Object info = trailer.getKey("/Info");
    if (text.empty())
        info.removeKey(key);
    else
        info.replaceKey(key, Object::newUnicodeString(text));
}

void PdfDocument::BeginPage(const PageSize& size) {
    if (page_ && page_->picture.isInitialized()) throw PdfError("The page before has not been ended.");
    page_ = Page{size, std::nullopt, {}};
}

PdfDocument::Page& PdfDocument::CurrentPage() {
    if (!page_) throw PdfError("No page has been begun.");
    return *page_;
}

void PdfDocument::Place(const Placement& placement) {
    Page& page = CurrentPage();
    if (placement.width <= 0 || placement.height <= 0)
        throw PdfError("A picture cannot be drawn that small.");
    page.placement = placement;
}

void PdfDocument::AddPicture(const std::string& pngPath) {
    Page& page = CurrentPage();
    if (!page.placement) throw PdfError("The picture has no place on its page.");
    if (page.picture.isInitialized()) throw PdfError("The page has its picture already.");
    page.picture = MakePicture(*pdf_, pngPath);
}

void PdfDocument::EndPage() {
    const Page ended = CurrentPage();
    page_.reset();
    if (!ended.picture.isInitialized()) throw PdfError("The page has no picture and was left out.");

    Object pictures = Object::newDictionary();
    pictures.replaceKey("/Picture", ended.picture);
    Object resources = Object::newDictionary();
    resources.replaceKey("/XObject", pictures);
    Object page = Object::newDictionary();
    page.replaceKey("/Type", Object::newName("/Page"));
    page.replaceKey("/MediaBox", NumberArray({0, 0, ended.size.width, ended.size.height}));
    page.replaceKey("/Resources", resources);
    page.replaceKey("/Contents", PictureContent(*pdf_, ended.size, *ended.placement));
    pdf_->addPage(pdf_->makeIndirectObject(page), false);
    hasPages_ = true;
}

void PdfDocument::Write() {
    if (page_ && page_->picture.isInitialized()) throw PdfError("The last page has not been ended.");
    if (!hasPages_) throw PdfError("The document has no pages.");
    const std::string unfinished = files::UnfinishedName(path_);
    try {
        WriteDocument(*pdf_, unfinished);
        pdf_.reset();  // lets go of the file that is replaced now
        files::Rename(unfinished, path_);
    } catch (...) {
        files::TryDelete(unfinished);
        throw;
    }
}

}  // namespace lumarin::qpdf
