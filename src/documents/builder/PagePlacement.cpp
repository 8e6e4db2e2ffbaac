#include "documents/builder/PagePlacement.h"

#include <algorithm>

#include "base/Numbers.h"
#include "documents/builder/PdfLibrary.h"

namespace lumarin {

namespace {

/// 8.5 x 14 inches at 150 dots per inch, and at 300.
constexpr PixelSize NormalLimit{1275, 2100};
constexpr PixelSize FineLimit{2550, 4200};

// Points.
constexpr double UsableWidth = 558;
constexpr double LetterHeight = 738;
constexpr double LegalHeight = 954;
constexpr std::int32_t Margin = 27;

}  // namespace

PixelSize WithinLimit(PixelSize size, PageColours colours) {
    const PixelSize& limit = colours == PageColours::BlackAndWhite ? FineLimit : NormalLimit;
    if (size.width > limit.width) size = {limit.width, size.height * limit.width / size.width};
    if (size.height > limit.height) size = {size.width * limit.height / size.height, limit.height};
    return size;
}

PagePlace PlaceOnPage(PixelSize picture, std::int32_t pageSize) {
    const double usableHeight = pageSize == PdfLetterPage ? LetterHeight : LegalHeight;
    double width = UsableWidth;
    double height = UsableWidth / picture.width * picture.height;
    if (height > usableHeight) {
        height = usableHeight;
        width = usableHeight / picture.height * picture.width;
    }
    // A line of single pixels is drawn as a thin line, not as nothing.
    const std::int32_t drawnWidth = std::max(1, RoundToWhole(width));
    const std::int32_t drawnHeight = std::max(1, RoundToWhole(height));
    return {RoundToWhole((UsableWidth - drawnWidth) / 2 + Margin), Margin, drawnWidth, drawnHeight};
}

}  // namespace lumarin
