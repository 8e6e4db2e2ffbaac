#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "documents/builder/PagePlacement.h"

namespace lumarin {

/// Names a page of a draft as long as the draft lasts, wherever the page stands; from 1.
using PageId = std::int32_t;
/// Pages in an order.
using PageIds = std::vector<PageId>;

/// A document that is being built, as it is kept beside its PDF file in case the program ends. What counts is
/// `order`; the PDF file follows. A page never changes: one that is turned is another page, made of the same
/// picture.
struct PdfDraft {
    struct Page {
        std::string source;      ///< file name, or where else the picture came from
        std::int64_t bytes = 0;  ///< of the page's PNG file
        PageId original = 0;     ///< the page that this one is, turned; 0 when it is as it came
        int quarters = 0;        ///< how it is turned, clockwise, 0 to 3
        PageColours colours = PageColours::Colour;
        std::int32_t pageSize = 0;  ///< page size code; 0 for pages of which only the PDF file knows more
        PagePlace place;
        bool isKept = false;  ///< its PNG file is there
    };
    /// The order as it was before something was done, for undo; or afterwards, for redo.
    struct Step {
        std::string what;  ///< "Move 2 pages"
        PageIds order;
    };
    /// A scanned page that was left out as a blank one, and the page, as it came, that it followed; 0 for
    /// none.
    struct LeftOut {
        PageId page = 0;
        PageId behind = 0;
    };
    using LeftOuts = std::vector<LeftOut>;
    /// Under which name the PDF file went to the server, and how long it was then; "" before the first try.
    struct Upload {
        std::string name;
        std::int64_t length = 0;
    };

    std::int32_t listing = 0;
    std::string description;
    std::map<PageId, Page> pages;  ///< those of the document, and those that can be brought back
    PageIds order;
    PageIds built;               ///< the pages of the PDF file, when that was last known
    std::int64_t pdfLength = 0;  ///< its bytes then
    std::vector<Step> undo, redo;
    LeftOuts leftOut;
    Upload upload;

    /// What the document's pages have as PNG files.
    std::int64_t PictureBytes() const { return BytesOf(order); }
    /// Bytes of the PDF file; as it will be, within a few per page, while it lacks something.
    std::int64_t DocumentLength() const { return LengthWith(order); }
    std::int64_t LengthWith(const PageIds& pagesInOrder) const;
    bool IsBuilt() const { return order == built; }
    /// Whether the PDF file lacks nothing but pages behind those that it has.
    bool IsBuiltSoFar() const;
    /// Whether pages can be taken out, moved and turned: the document can be built of their files again.
    bool CanBeChanged() const;
    /// "1 page", "2 pages".
    std::string PageCountText() const;
    PageId NextId() const { return pages.empty() ? 1 : pages.rbegin()->first + 1; }
    /// The number of the last scanned page, "Scan 3"; 0 for none.
    int LastScan() const;

    /// Gives the document another order, which undo takes back; what was undone before is forgotten.
    void Change(const std::string& what, PageIds newOrder);
    /// Nothing where there is nothing to take back, or to do again.
    void Undo();
    void Redo();
    /// Forgets pages that nothing can bring back, and says which.
    PageIds ForgetPages();

private:
    std::int64_t BytesOf(const PageIds& ids) const;
};

/// "Scan 3".
std::string ScanName(int number);

/// One text of lines "key=value". `ParseDraft` takes any bytes; nothing for those that are not a draft. It
/// passes over keys that it does not know, and takes texts of the versions before.
std::string DraftText(const PdfDraft& draft);
std::optional<PdfDraft> ParseDraft(const std::string& text);

}  // namespace lumarin
