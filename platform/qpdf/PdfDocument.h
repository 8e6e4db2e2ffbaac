#pragma once

#include <qpdf/QPDF.hh>

#include <memory>
#include <optional>
#include <string>

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
class PdfDocument {
public:
    /// An empty one. Throws FileError where no file can be written.
    static std::unique_ptr<PdfDocument> Create(const std::string& path);
    /// One with the pages of a file, which is read bit by bit up to `Write`.
    static std::unique_ptr<PdfDocument> Open(const std::string& path);

    const std::string& Path() const { return path_; }

    /// A property of the whole document, by its key; "" removes it.
    void SetInfo(const std::string& key, const std::string& text);

    /// Begins a page. One that was begun before and has no picture is forgotten.
    void BeginPage(const PageSize& size);
    void Place(const Placement& placement);
    void AddPicture(const std::string& pngPath);
    void EndPage();

    /// Writes the file. The document is of no use afterwards.
    void Write();

private:
    struct Page {
        PageSize size;
        std::optional<Placement> placement;
        QPDFObjectHandle picture;
    };

    explicit PdfDocument(const std::string& path);
    Page& CurrentPage();

    std::string path_;
    std::unique_ptr<QPDF> pdf_;
    std::optional<Page> page_;
    bool hasPages_ = false;
};

}  // namespace lumarin::qpdf
