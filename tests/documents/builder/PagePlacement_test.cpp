#include "documents/builder/PagePlacement.h"

#include <gtest/gtest.h>

#include "documents/builder/PdfLibrary.h"

namespace lumarin {

TEST(PagePlacement, Picture_IsReducedToItsModesLimitAndFillsThePageFromTheTop) {
    const struct {
        PageColours colours;
        PixelSize source;
        std::int32_t page;
        PixelSize reduced;
        PagePlace place;
    } cases[] = {
        {PageColours::Colour, {3000, 1000}, PdfLetterPage, {1275, 425}, {27, 27, 558, 186}},
        {PageColours::Colour, {1275, 2100}, PdfLetterPage, {1275, 2100}, {82, 27, 448, 738}},
        {PageColours::Colour, {2550, 8400}, PdfLegalPage, {637.5, 2100}, {161, 27, 290, 954}},
        {PageColours::BlackAndWhite, {3000, 1000}, PdfLegalPage, {2550, 850}, {27, 27, 558, 186}},
        {PageColours::BlackAndWhite, {2550, 8400}, PdfLetterPage, {1275, 4200}, {194, 27, 224, 738}},
        {PageColours::Grey, {1000, 4200}, PdfLegalPage, {500, 2100}, {192, 27, 227, 954}},
        {PageColours::Grey, {10, 10}, PdfLetterPage, {10, 10}, {27, 27, 558, 558}},
    };
    for (const auto& row : cases) {
        const PixelSize size = WithinLimit(row.source, row.colours);
        const PagePlace place = PlaceOnPage(size, row.page);
        EXPECT_EQ(std::tie(size.width, size.height), std::tie(row.reduced.width, row.reduced.height));
        EXPECT_EQ(std::tie(place.left, place.top, place.width, place.height),
                  std::tie(row.place.left, row.place.top, row.place.width, row.place.height))
            << row.source.width << " on " << row.page;
    }
}

}  // namespace lumarin
