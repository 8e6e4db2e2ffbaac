#include "documents/PdfDraft.h"

#include <gtest/gtest.h>

#include "base/Files.h"
#include "support/TemporaryFolder.h"

namespace lumarin {
namespace {

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

}  // namespace
}  // namespace lumarin
