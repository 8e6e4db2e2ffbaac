#include <algorithm>

#include "hostile/SweepTest.h"

namespace lumarin {

using hostile::Sample;

/// The document manager with one link, and all that an agent can add to it.
class DocumentSweep : public hostile::SweepTest {
protected:
    DocumentSweep() {
        Write(folder + "city/CityInfo.ini", "[Lumarin]\nDocMaxSize=100000\n");
        documentsListing = hostile::Good;
        linkText = "kept";
        OpenDocuments();
        Try("the first", [this] { AddLink(); });
    }

    /// One document comes of it or a message says why not, and the first stays as it was.
    void Try(const std::string& name, const std::function<void()>& attempt) {
        SCOPED_TRACE(name);
        const int before = documents->lvFiles.Count();
        const std::size_t messages = MessagesOf(attempt);
        EXPECT_NE(documents->lvFiles.Count() == before + 1, messages > 0);
        EXPECT_EQ(documents->lvFiles.At(0).text, "kept");
    }

    /// A document of one page.
    std::string Pdf() {
        const std::string path = folder + "new.pdf";
        const PdfHandle handle = pdf.AdultPdfCreate(path);
        AddPage(handle);
        pdf.AdultPdfClose(handle);
        return files::ReadAll(path);
    }
    PdfStatus AddPage(PdfHandle handle) {
        pdf.AdultPdfSetFunction(handle, PdfFunction::PageSize, PdfLetterPage, PdfLetterPage, "0", "0");
        pdf.AdultPdfSetFunction(handle, PdfFunction::PlaceImage, 27, 27, "558", "349");
        const PdfStatus status = pdf.AdultPdfAddImage(handle, incoming + "good.png");
        pdf.AdultPdfSetFunction(handle, PdfFunction::PageSize, 0, 0, "0", "0");
        return status;
    }
    std::vector<Sample> Pdfs() {
        std::vector<Sample> pdfs = hostile::Damaged("pdf", Pdf());
        const std::string pages =
            "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n2 0 obj<</Type/Pages";
        const std::string end = ">>endobj\ntrailer<</Root 1 0 R/Size 3>>\nstartxref\n0\n%%EOF";
        const std::string locked = ">>endobj\ntrailer<</Root 1 0 R/Encrypt<</Filter/Standard/V 5/R 6>>";
        for (const Sample& sample : std::vector<Sample>{
                 {"the mark alone", "%PDF-"},
                 {"a huge table", "%PDF-1.4\nxref\n0 4294967295\n0000000000 65535 f \n" + end},
                 {"pages in a circle", pages + "/Count 1/Kids[2 0 R]" + end},
                 {"two billion pages", pages + "/Count 2147483647/Kids[]" + end},
                 {"deep nesting", pages + "/Kids" + std::string(100'000, '[') + end},
                 {"locked", pages + "/Count 0/Kids[]" + locked + end}})
            pdfs.push_back(sample);
        return pdfs;
    }
};

TEST_F(DocumentSweep, Files_AddedAsTheyAre_GiveADocumentOrAMessage) {
    Write(folder + "new.pdf", Pdf());
    for (const std::string& path : StrangePaths(folder + "new.pdf", ".pdf"))
        Try(path, [&] {
            linkText = std::to_string(documents->lvFiles.Count());  // the same twice is one repeated command
            desktop.Choose(path);
            documents->ActiveBar1.ClickTool("miAddExistingFile");
        });
}

TEST_F(DocumentSweep, BegunDocuments_Broken_TakeAPageOrSayWhyNot) {
    const std::string path = folder + "begun.pdf";
    for (const auto& [name, bytes] : Pdfs()) {
        SCOPED_TRACE(name);
        Write(path, bytes);
        bool grown = false;
        MessagesOf([&] {
            const PdfHandle handle = pdf.AdultPdfOpen(path);
            grown = handle > 0 && AddPage(handle) == PdfStatus::Done &&
                    pdf.AdultPdfClose(handle) == PdfStatus::Done;
        });
        EXPECT_TRUE(grown || (!pdf.LastFailure().empty() && files::ReadAll(path) == bytes));
    }
}

TEST_F(DocumentSweep, Pictures_AsPages_GiveAPageOrAMessageEach) {
    linkText = "pages";
    const std::vector<Sample> pictures = hostile::Pictures();
    build = [&](frmMakePDF& builder) {
        constexpr std::size_t Batch = 40;
        for (std::size_t first = 0; first < pictures.size(); first += Batch) {
            std::vector<std::string> paths;
            for (std::size_t i = first; i < std::min(first + Batch, pictures.size()); ++i) {
                paths.push_back(incoming + std::to_string(i));
                Write(paths.back(), pictures[i].second);
            }
            builder.cboDocType.SetListIndex(static_cast<int>(first / Batch % 3));
            const auto pages = static_cast<std::size_t>(builder.lbmBM.Count());
            const std::size_t messages = desktop.messages.size();
            builder.lbmBM.DropFiles(paths);
            const auto isNamed = [&](const std::string& path) {
                return std::any_of(desktop.messages.begin() + static_cast<std::ptrdiff_t>(messages),
                                   desktop.messages.end(), [&](const Message& message) {
                                       return message.text.find(path + "\n") != std::string::npos;
                                   });
            };
            const auto refused = static_cast<std::size_t>(std::count_if(paths.begin(), paths.end(), isNamed));
            EXPECT_EQ(builder.lbmBM.Count() - pages + refused, paths.size()) << pictures[first].first;
            EXPECT_LE(desktop.messages.size() - messages, 1U) << "one box for all of an import";
        }
        builder.txtLinkText.SetText(linkText);
        builder.cmdOK.Press();
    };
    BuildPdf();
    ASSERT_EQ(documents->lvFiles.Count(), 2);
    const std::string sent =
        host.common.ListingServer().DocumentFile(100123, std::stoll(documents->lvFiles.At(1).key));
    EXPECT_GT(pdf.AdultPdfOpen(sent), 0) << pdf.LastFailure();
}

TEST_F(DocumentSweep, Texts_TypedAsDescriptionAndAddress_GiveALinkOrAMessage) {
    for (const std::string& text : hostile::Texts()) {
        linkText = text;
        linkAddress = "example.org/" + text;
        Try(text.substr(0, 60), [this] { AddLink(); });
        documents->cmdPreview.Press();
    }
}

}  // namespace lumarin
