#include <gtest/gtest.h>

#include "base/Files.h"
#include "documents/DocumentAddress.h"
#include "documents/DocumentCommands.h"
#include "documents/PagePlacement.h"
#include "documents/PdfDraft.h"
#include "documents/PdfLibrary.h"
#include "documents/SizeText.h"
#include "support/TemporaryFolder.h"

namespace lumarin {
TEST(SizeText, RoundsUpInItsOwnUnits) {
    const std::pair<std::int64_t, const char*> cases[] = {
        {0, ""},          {1, "1"},         {1023, "1023"},
        {1024, "1KB"},    {1025, "2KB"},    {1023999, "1000KB"},
        {1024000, "1MB"}, {1024001, "2MB"}, {5'000'000'000, "4883MB"},
    };
    for (const auto& [bytes, expected] : cases) EXPECT_EQ(SizeText(bytes), expected) << bytes;
}

TEST(DocumentCommands, AreWrittenAsTheServerReadsThem) {
    const DocumentUser user{"VEL", "A101"};
    EXPECT_EQ(ServerFileName(user, 100123, {.year = 2026, .month = 1, .day = 2, .second = 5}),
              "VEL_A101100123_86405Doc.pdf");
    EXPECT_EQ(AddFileCommand(user, 7, "f.pdf", "Plan|A\r\nB\nC"), "ADD|VEL|A101|7|f.pdf|Plan\u00A6A B C");
    EXPECT_EQ(AddLinkCommand(user, 7, "Map", "http://x/a|b\n"), "ADD|VEL|A101|7||Map|http://x/a%7Cb ");
    EXPECT_EQ(DeleteCommand(user, 17), "DELETE|VEL|A101|17");
}

TEST(PagePlacement, LargePicture_IsReducedToTheColourModesLimit) {
    const std::tuple<PageColors, PixelSize, PixelSize> cases[] = {
        {PageColors::Color, {3000, 1000}, {1275, 425}},
        {PageColors::BlackAndWhite, {3000, 1000}, {2550, 850}},
        {PageColors::Gray, {1000, 4200}, {500, 2100}},
        {PageColors::Color, {2550, 8400}, {637.5, 2100}},
        {PageColors::BlackAndWhite, {2550, 8400}, {1275, 4200}},
        {PageColors::Color, {1275, 2100}, {1275, 2100}},
        {PageColors::Gray, {10, 10}, {10, 10}},
    };
    for (const auto& [colors, source, expected] : cases) {
        const PixelSize size = WithinLimit(source, colors);
        EXPECT_DOUBLE_EQ(size.width, expected.width);
        EXPECT_DOUBLE_EQ(size.height, expected.height);
    }
}

TEST(PagePlacement, Picture_FillsTheUsableAreaFromTheTop) {
    const struct {
        PixelSize picture;
        std::int32_t page;
        PagePlace expected;
    } cases[] = {
        {{1275, 2100}, PdfLetterPage, {82, 27, 448, 738}}, {{1275, 2100}, PdfLegalPage, {27, 27, 558, 919}},
        {{1275, 425}, PdfLetterPage, {27, 27, 558, 186}},  {{2550, 850}, PdfLegalPage, {27, 27, 558, 186}},
        {{500, 2100}, PdfLetterPage, {218, 27, 176, 738}}, {{500, 2100}, PdfLegalPage, {192, 27, 227, 954}},
        {{4, 4}, PdfLetterPage, {27, 27, 558, 558}}};
    for (const auto& [picture, page, expected] : cases) {
        const PagePlace place = PlaceOnPage(picture, page);
        EXPECT_EQ(std::tie(place.left, place.top, place.width, place.height),
                  std::tie(expected.left, expected.top, expected.width, expected.height))
            << picture.width << " on " << page;
    }
}

TEST(DocumentAddress, Schemes) {
    for (const char* web : {"http://x", "HTTPS://x", "www.x.y", "www.x.y:8080/a", "localhost:80", "/a:b",
                            "x/y?z=file:///a", ""})
        EXPECT_FALSE(HasOtherScheme(web)) << web;
    for (const char* other : {"file:///etc/passwd", "JavaScript:x()", " java\tscript:x()", "data:text/html,x",
                              "mailto:a@b", "javascript:1+1", "C:\\x.pdf"})
        EXPECT_TRUE(HasOtherScheme(other)) << other;
}

TEST(PdfDraft, FileGrewAfterTheDraftWasWritten_IsOneEntryMore) {
    const testing::TemporaryFolder folder;
    const PdfDraftFiles draftFiles(folder.Path());
    files::WriteWhole(draftFiles.Pdf(), "%PDF-1");
    EXPECT_FALSE(draftFiles.Read());
    PdfDraft draft{5, "two\nlines", 0, {{"a b.png", 3}}};
    draftFiles.Write(draft);
    files::WriteWhole(draftFiles.Pdf(), "%PDF-1 and more");
    EXPECT_EQ(draftFiles.Read()->description, "two lines");
    EXPECT_EQ(draftFiles.Read()->pages.at(0).source, "a b.png");
    EXPECT_EQ(draftFiles.Read()->Bytes(), 12);
    draftFiles.DeleteAll();
    EXPECT_FALSE(files::HasEntries(folder.Path()));
}

}  // namespace lumarin
