#include <gtest/gtest.h>

#include "base/Files.h"
#include "platform/qpdf/QpdfLibrary.h"
#include "platform/windows/pdf/DllPdfLibrary.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

/// A grey pixel.
const std::string Png(
    "\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\1\0\0\0\1\x08\0\0\0\0:~\x9b"
    "U"
    "\0\0\0\nIDATx\x9c"
    "ch\0\0\0\x82\0\x81"
    "w\xcd"
    "r\xb6\0\0\0\0IEND\xae"
    "B`\x82",
    67);

class DllPdfLibraryTest : public ::testing::Test {
protected:
    DllPdfLibraryTest() { files::Copy(PDF_DLL, dll); }

    void ExpectDone(PdfStatus status) { EXPECT_EQ(status, PdfStatus::Done) << library.LastFailure(); }

    void AddPage(PdfHandle handle, const std::string& picture) {
        ASSERT_GT(handle, 0) << library.LastFailure();
        ExpectDone(library.AdultPdfSetFunction(handle, PdfFunction::PageSize, PdfLetterPage, PdfLetterPage,
                                               "0", "0"));
        ExpectDone(library.AdultPdfSetFunction(handle, PdfFunction::PlaceImage, 82, 27, "448", "738"));
        ExpectDone(library.AdultPdfAddImage(handle, picture));
        ExpectDone(library.AdultPdfSetFunction(handle, PdfFunction::PageSize, 0, 0, "0", "0"));
    }

    testing::TemporaryFolder folder;
    const std::string dll = folder.Path() + "QorCreatePdf.dll";
    windows::DllPdfLibrary library;
};

TEST_F(DllPdfLibraryTest, Document_ThroughTheLibrary_HasItsPagesAndPropertiesWhateverTheFolder) {
    ExpectDone(library.Load(dll));
    const std::string manyLetters(120, 'l');
    for (const std::string name : {std::string("plain"), std::string("\u00DCber"),
                                   std::string("\u65E5\u672C \u0416"), manyLetters + "/" + manyLetters}) {
        SCOPED_TRACE(name);
        const std::string user = folder.Path() + name + files::Separator;
        files::EnsureFolder(user);
        files::WriteWhole(user + "CreatePDFTmp.png", Png);
        const std::string pdf = user + "CreatePDFTmp.pdf";
        PdfHandle handle = library.AdultPdfCreate(pdf);
        ExpectDone(library.AdultPdfAddInfo(handle, "100123 PDF", "100123", "Creator", "0", "Zo\u00EB"));
        for (int page = 0; page < 3; ++page, handle = library.AdultPdfOpen(pdf)) {
            AddPage(handle, user + "CreatePDFTmp.png");
            ExpectDone(library.AdultPdfClose(handle));
        }
        ExpectDone(library.AdultPdfClose(handle));
        const std::string bytes = files::ReadAll(pdf);
        EXPECT_NE(bytes.find("/Count 3"), std::string::npos);
        EXPECT_NE(bytes.find("/Author <5a6feb>"), std::string::npos);
        EXPECT_GT(qpdf::QpdfLibrary().AdultPdfOpen(pdf), 0) << "readable from outside, under its own name";
    }
    EXPECT_EQ(library.AdultPdfCreate(folder.Path() + "\u65E5.pdf"), 0);
    EXPECT_NE(library.LastFailure().find("code page"), std::string::npos) << library.LastFailure();
    EXPECT_EQ(library.AdultPdfOpen(folder.Path() + "none.pdf"), 0);
    EXPECT_NE(library.LastFailure().find("could not open the file"), std::string::npos)
        << library.LastFailure();
}

TEST_F(DllPdfLibraryTest, Library_ThatIsNotThereOrNotOne_IsNamedWithTheReason) {
    files::WriteWhole(folder.Path() + "text.dll", "no library");
    const struct {
        const char* name;
        std::string path, reason;
    } cases[] = {
        {"no file", folder.Path() + "none.dll", "none.dll\" is missing"},
        {"not a library", folder.Path() + "text.dll", "text.dll\" cannot be loaded: it is damaged"},
        {"no such function", "C:\\windows\\system32\\version.dll", "has no function \"AdultPdfCreate\""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(library.Load(row.path), PdfStatus::Failed);
        EXPECT_NE(library.LastFailure().find(row.reason), std::string::npos) << library.LastFailure();
        EXPECT_EQ(library.AdultPdfCreate(folder.Path() + "a.pdf"), 0);
    }
    ExpectDone(library.Load(dll));
}

}  // namespace lumarin
