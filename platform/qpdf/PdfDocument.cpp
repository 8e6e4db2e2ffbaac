#include "platform/qpdf/PdfDocument.h"

#include <qpdf/QPDFWriter.hh>

#include <algorithm>
#include <initializer_list>
#include <set>

#include "base/FileSystem.h"
#include "base/Files.h"
#include "platform/qpdf/FilePipeline.h"
#include "platform/qpdf/PagePicture.h"
#include "platform/qpdf/PdfError.h"

namespace lumarin::qpdf {

namespace {

using Object = QPDFObjectHandle;

// 1.5 is the first version with 16 bits per colour; all readers of today know it.
constexpr const char* PdfVersion = "1.5";

Object PictureContent(QPDF& pdf, const PageSize& page, const Placement& at) {
    // The document counts from the lower edge.
    const int bottom = page.height - at.top - at.height;
    return Object::newStream(&pdf, "q " + std::to_string(at.width) + " 0 0 " + std::to_string(at.height) +
                                       " " + std::to_string(at.left) + " " + std::to_string(bottom) +
                                       " cm /Picture Do Q\n");
}

/// Pages that one group of the page tree holds. A page that is added rewrites its group and the list of
/// the groups, so that a document of many pages does not grow by the whole list each time.
constexpr int GroupSize = 20;

/// The last group when this library made it and it has room.
std::optional<Object> OpenGroup(Object& pages) {
    Object groups = pages.getKey("/Kids");
    if (groups.getArrayNItems() == 0) return std::nullopt;
    Object last = groups.getArrayItem(groups.getArrayNItems() - 1);
    const bool isOurs = last.isIndirect() && last.isDictionary() && last.getObjGen() != pages.getObjGen() &&
                        last.getKeys() == std::set<std::string>{"/Count", "/Kids", "/Parent", "/Type"} &&
                        last.getKey("/Kids").isArray() && last.getKey("/Count").isInteger();
    if (!isOurs || last.getKey("/Kids").getArrayNItems() >= GroupSize) return std::nullopt;
    return last;
}

Object MakeGroup(QPDF& pdf, Object& pages) {
    Object group = pdf.makeIndirectObject(Object::newDictionary());
    group.replaceKey("/Type", Object::newName("/Pages"));
    group.replaceKey("/Parent", pages);
    group.replaceKey("/Kids", Object::newArray());
    group.replaceKey("/Count", Object::newInteger(0));
    pages.getKey("/Kids").appendItem(group);
    return group;
}

void CountPage(Object& node) {
    node.replaceKey("/Count", Object::newInteger(node.getKey("/Count").getIntValue() + 1));
}

Object NumberArray(std::initializer_list<int> numbers) {
    Object array = Object::newArray();
    for (const int number : numbers) array.appendItem(Object::newInteger(number));
    return array;
}

void WriteDocument(QPDF& pdf, FilePipeline& file) {
    QPDFWriter writer(pdf);
    writer.setOutputPipeline(&file);
    writer.setMinimumPDFVersion(PdfVersion);
    // Everything is packed already; the few bytes of a page's instructions would only grow.
    writer.setStreamDataMode(qpdf_s_preserve);
    writer.setObjectStreamMode(qpdf_o_disable);     // an index that is not packed can be added to
    writer.setDeterministicID(!pdf.isEncrypted());  // a protected one takes the time
    writer.write();
}

}  // namespace

PdfDocument::PdfDocument(const std::string& path) : file_(path), pdf_(std::make_unique<QPDF>()) {
    // Nobody reads standard error, and a document that has to be guessed at is not added to.
    pdf_->setSuppressWarnings(true);
    pdf_->setAttemptRecovery(false);
}

std::unique_ptr<PdfDocument> PdfDocument::Create(const std::string& path) {
    std::unique_ptr<PdfDocument> document(new PdfDocument(path));
    document->pdf_->emptyPDF();
    document->end_ = FileEnd{};
    document->Remember(document->pdf_->getRoot());
    TryWriting(files::UnfinishedName(path));
    return document;
}

std::unique_ptr<PdfDocument> PdfDocument::Open(const std::string& path) {
    std::unique_ptr<PdfDocument> document(new PdfDocument(path));
    document->pdf_->processFile(files::LibraryPath(path).c_str());
    Object pages = document->pdf_->getRoot().getKey("/Pages");
    if (!pages.isIndirect() || !pages.isDictionary() || !pages.getKey("/Kids").isArray() ||
        !pages.getKey("/Count").isInteger())
        throw PdfError("The file \"" + path + "\" has no pages.");
    document->end_ = FindFileEnd(*document->pdf_, path);
    document->hasPages_ = true;
    document->readsFile_ = true;
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
    Remember(info);
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
    page.picture = pictures_.Make(*pdf_, pngPath);
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
    const Object content = PictureContent(*pdf_, ended.size, *ended.placement);
    page.replaceKey("/Contents", content);
    Remember(ended.picture);
    Remember(content);
    Append(pdf_->makeIndirectObject(page));
}

// The library's own function looks at every page that is there already.
void PdfDocument::Append(QPDFObjectHandle page) {
    Object pages = pdf_->getRoot().getKey("/Pages");
    const std::optional<Object> open = OpenGroup(pages);
    Object group = open ? *open : MakeGroup(*pdf_, pages);
    page.replaceKey("/Parent", group);
    group.getKey("/Kids").appendItem(page);
    CountPage(group);
    CountPage(pages);
    for (const Object& object : {page, group, group.getKey("/Kids"), pages, pages.getKey("/Kids")})
        Remember(object);
    hasPages_ = true;
}

void PdfDocument::Remember(QPDFObjectHandle object) {
    const auto isSame = [&](const Object& other) { return other.getObjGen() == object.getObjGen(); };
    if (object.isIndirect() && std::none_of(changed_.begin(), changed_.end(), isSame))
        changed_.push_back(object);
}

void PdfDocument::Write() {
    if (page_ && page_->picture.isInitialized()) throw PdfError("The last page has not been ended.");
    if (!hasPages_) throw PdfError("The document has no pages.");
    pictures_.Finish();
    if (changed_.empty()) return pictures_.Forget();  // the file has everything
    file_.Replace(end_ ? end_->length : 0, [this](FilePipeline& file) {
        if (end_)
            end_ = WriteUpdate(*pdf_, changed_, *end_, file);
        else
            WriteDocument(*pdf_, file);
        if (readsFile_) pdf_.reset();  // lets go of the file that is replaced now
    });
    changed_.clear();
    pictures_.Forget();
}

}  // namespace lumarin::qpdf
