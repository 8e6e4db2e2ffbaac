#include "documents/builder/PagePlacement.h"

#include <gtest/gtest.h>

#include "documents/builder/PdfLibrary.h"

namespace lumarin {

TEST(PagePlacement, Picture_IsReducedToItsModesLimitAndFillsThePageFromTheTop) {
    const std::tuple<PageColours, PixelSize, std::int32_t, PixelSize, PagePlace> cases[] = {
        {PageColours::Colour, {3000, 1000}, PdfLetterPage, {1275, 425}, {27, 27, 558, 186}},
        {PageColours::Colour, {1275, 2100}, PdfLetterPage, {1275, 2100}, {82, 27, 448, 738}},
        {PageColours::Colour, {2550, 8400}, PdfLegalPage, {637.5, 2100}, {161, 27, 290, 954}},
        {PageColours::BlackAndWhite, {3000, 1000}, PdfLegalPage, {2550, 850}, {27, 27, 558, 186}},
        {PageColours::BlackAndWhite, {2550, 8400}, PdfLetterPage, {1275, 4200}, {194, 27, 224, 738}},
        {PageColours::Grey, {1000, 4200}, PdfLegalPage, {500, 2100}, {192, 27, 227, 954}},
        {PageColours::Grey, {10, 10}, PdfLetterPage, {10, 10}, {27, 27, 558, 558}},
    };
    for (const auto& [colours, source, page, reduced, expected] : cases) {
        const PixelSize size = WithinLimit(source, colours);
        const PagePlace place = PlaceOnPage(size, page);
        EXPECT_EQ(std::tie(size.width, size.height), std::tie(reduced.width, reduced.height));
        EXPECT_EQ(std::tie(place.left, place.top, place.width, place.height),
                  std::tie(expected.left, expected.top, expected.width, expected.height))
            << source.width << " on " << page;
    }
}

}  // namespace lumarin
