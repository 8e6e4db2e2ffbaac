#pragma once

#include "documents/builder/frmMakePDF.h"
#include "support/FakePdfLibrary.h"
#include "support/WindowTest.h"

namespace lumarin {

inline constexpr std::int32_t Maximum = 100'000;  // "98KB"

/// A feeder with two sheets.
struct TwoSheets final : Scanner {
    std::vector<ScannerSource> Sources(const WhileWaiting&) override { return {}; }
    ScanOutcome Acquire(const ScanOrder&, const ScanEvents& events) override {
        for (int page = 1; page <= sheets; ++page)
            if (events.pageArrived({std::make_shared<Picture>(Picture{9, 9, {}}), page, true}) ==
                AfterPage::Stop)
                break;
            else if (page == 1)
                between();
        return ScanOutcome::Finished;
    }
    std::function<void()> between = [] {};
    int sheets = 2;
};

class MakePdf : public testing::WindowTest {
protected:
    MakePdf() {
        imaging.pictures["/in/a.png"] = imaging.pictures["/in/b.png"] = {1275, 2100};
        Renew();
    }

    /// The builder of the next run of the program.
    void Renew(std::int32_t listing = 100123, std::int32_t maximum = Maximum) {
        window.reset();
        window = std::make_unique<frmMakePDF>(DocumentPorts{Ports(&scanner), pdf});
        window->SetDocument(listing, maximum);
        window->CloseForm = [this] {
            ++closed;
            window->Hide();
        };
    }
    void Open(const std::function<void()>& work) {
        desktop.Play("frmMakePDF", [&work](Form& form) {
            work();
            form.Hide();
        });
        window->Display(nullptr);
    }
    void Add(const std::string& files) {
        desktop.Choose(Files(files));
        window->cmdAddFiles.Press();
    }
    void Click(const char* tool) { window->ActiveBar1.ClickTool(tool); }
    void WillAsk(Answer answer) {
        desktop.Expect("Do you want to throw away the 1 page of this document?", answer);
    }
    void ExpectPages(int pages, const std::string& size) {
        EXPECT_EQ(window->lbmBM.Count(), pages);
        EXPECT_EQ(window->lblFilesize.Caption(), size + " of 98KB");
    }
    /// Where the pages came from, in their order.
    std::string Sources() {
        std::string text;
        for (int row = 0; row < window->lbmBM.Count(); ++row) text += window->lbmBM.Cell(row, 1) + " ";
        return text;
    }
    /// What the next start of the program would find in the user's folder.
    std::optional<PdfDraft> OnDisk() const { return PdfDraftFiles(host.UserFolder()).Read(); }
    bool Exists(const char* ending) const {
        return files::FileExists(host.UserFolder() + "CreatePDFTmp" + ending);
    }

    testing::FakePdfLibrary pdf;
    TwoSheets scanner;
    std::unique_ptr<frmMakePDF> window;
    int closed = 0;
};

}  // namespace lumarin
