#pragma once

#include <qpdf/QPDF.hh>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/qpdf/FileUpdate.h"
#include "platform/qpdf/GrowingFile.h"
#include "platform/qpdf/PagePicture.h"

namespace lumarin::qpdf {

/// In points.
struct PageSize {
    int width = 0;
    int height = 0;
};

/// Where a picture lies on its page, in points from the page's upper left corner.
struct Placement {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// One document under construction. Every function throws an exception with the reason; the file stays as
/// it is until `Write` has come to its end.
///
/// A document that was created goes on after `Write`: it takes more pages and writes again, at the cost of
/// the new ones.
class PdfDocument {
public:
    /// An empty one. Throws FileError where no file can be written.
    static std::unique_ptr<PdfDocument> Create(const std::string& path);
    /// One with the pages of a file, which is read bit by bit up to `Write`.
    static std::unique_ptr<PdfDocument> Open(const std::string& path);

    const std::string& Path() const { return file_.Path(); }

    /// A property of the whole document, by its key; "" removes it.
    void SetInfo(const std::string& key, const std::string& text);

    /// Begins a page. One that was begun before and has no picture is forgotten.
    void BeginPage(const PageSize& size);
    void Place(const Placement& placement);
    void AddPicture(const std::string& pngPath);
    void EndPage();

    void Write();

    /// Whether the document can go on with the file as it lies there.
    bool CanGoOn() const { return !readsFile_ && file_.IsAsLeft(); }

private:
    struct Page {
        PageSize size;
        std::optional<Placement> placement;
        QPDFObjectHandle picture;
    };

    explicit PdfDocument(const std::string& path);
    Page& CurrentPage();
    /// Puts a page behind all others.
    void Append(QPDFObjectHandle page);
    void Remember(QPDFObjectHandle object);

    GrowingFile file_;
    std::unique_ptr<QPDF> pdf_;
    bool readsFile_ = false;  ///< from the file that is replaced
    PictureMaker pictures_;
    std::optional<FileEnd> end_;             ///< of a file that can be added to
    std::vector<QPDFObjectHandle> changed_;  ///< objects that the file lacks or has otherwise
    std::optional<Page> page_;
    bool hasPages_ = false;
};

}  // namespace lumarin::qpdf
