#include "documents/builder/frmMakePDF.h"

#include "support/FakePdfLibrary.h"
#include "support/WindowTest.h"

namespace lumarin {

constexpr std::int32_t Maximum = 100'000;  // "98KB"

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

TEST_F(MakePdf, Import_WritesEachPictureAsAPageAndClosesTheFile) {
    Open([&] {
        EXPECT_FALSE(window->ActiveBar1.IsEnabled("save"));
        window->cboDocType.SetListIndex(1);
        Add("/in|a.png|b.png");
        ExpectPages(2, "200");
        EXPECT_EQ(window->txtFilesImported.Text(), "a.png, b.png");
        EXPECT_TRUE(window->ActiveBar1.IsEnabled("save"));
        window->optLegal.Choose();
        Add("/in/a.png");
    });
    EXPECT_EQ(imaging.pages.at(0).colours, PageColours::Grey);
    EXPECT_EQ(pdf.calls, (Texts{"load " + host.ProgramFolder() + "QorCreatePdf.dll",
                                "create",
                                "info 100123 PDF,100123,Qor Veltrane - Create Document,0,Host text",  //
                                "109 5,5,0,0",
                                "104 82,27,448,738",
                                "image",
                                "109 0,0,0,0",
                                "close",
                                "open",
                                "109 5,5,0,0",
                                "104 82,27,448,738",
                                "image",
                                "109 0,0,0,0",
                                "close",
                                "open",
                                "109 6,6,0,0",
                                "104 27,27,558,919",
                                "image",
                                "109 0,0,0,0",
                                "close"}));
    EXPECT_FALSE(Exists(".png"));
}

TEST_F(MakePdf, RefusedPictures_AreNamedTogetherAndLeaveThePagesThatAreThere) {
    imaging.pageLengths = {90'000, 9'000, 9'000, 100, 9'000, 9'000, 9'000, 100, 100};
    Open([&] {
        Add("/in/a.png");
        desktop.Expect(
            "Cannot add file:\n/in/a.png\n/in/b.png\nMaximum size exceeded\n\nWith fewer colors:\na.png: in "
            "grayscale 9KB, in black & white 100 (fits)\nb.png: in grayscale 9KB, in black & white 9KB",
            "File is too large");
        Add("/in|a.png|b.png");
        imaging.openFailure = ImagingError(InvalidPictureError, "It is no picture.");
        desktop.Expect(
            "Lead error (-9)\n/in/x\nIt is no picture.\n\nLead error (-9)\n/in/y\nIt is no picture.",
            "Make PDF");
        Add("/in|x|y");
        imaging.openFailure.reset();
        pdf.failsToClose = true;
        desktop.Expect("the library failed");
        Add("/in/b.png");
        ExpectPages(1, "88KB");
        pdf.failsToClose = false;
        Add("/in/b.png");
        desktop.Expect("No photo on the clipboard", "From Clipboard");
        Click("paste");
        ExpectPages(2, "88KB");
    });
}

// The library needs all that it may: what a document, its properties and a page have besides the picture.
TEST_F(MakePdf, Pages_UpToTheLimit_GiveAFileThatCanBeSent) {
    imaging.pageLengths.assign(100, 5'000);
    pdf.pageOverhead = PdfPageOverhead;
    pdf.overhead = PdfDocumentOverhead;
    std::string all = "/in", refused;
    for (int i = 0; i < 16; ++i) all += "|a.png", refused += i < 14 ? "" : "/in/a.png\n";
    Open([&] {
        desktop.Expect("Your document is empty, Please add files before exiting");
        window->cmdOK.Press();
        window->cboDocType.SetListIndex(2);
        desktop.Expect("Cannot add file:\n" + refused + "Maximum size exceeded");
        Add(all);
        ExpectPages(14, "98KB");
        window->txtLinkText.SetText("  ");
        desktop.Expect("Please enter a description for your document");
        window->cmdOK.Press();
        window->txtLinkText.SetText(" Plan ");
        window->cmdOK.Press();
    });
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(window->LinkText(), "Plan");
    EXPECT_TRUE(Exists(".pdf"));
    Renew(100123, 50'000);  // the limit was lowered since
    desktop.Expect(
        "A document of 14 pages was begun for this listing and has not been sent. Do you want to go on with "
        "it?\n\nNo throws its pages away.\n\nIt is too large to be sent now (98KB of 49KB): save a copy of "
        "it, "
        "then begin a new document.",
        Answer::Yes);
    Open([&] {
        EXPECT_FALSE(window->cmdOK.Enabled());
        EXPECT_TRUE(window->ActiveBar1.IsEnabled("save"));
        desktop.Expect("Do you want to throw away the 14 pages of this document?", Answer::Yes);
        Click("new");
        EXPECT_TRUE(window->cmdOK.Enabled());
    });
}

TEST_F(MakePdf, EveryPageInTheList_IsOnDiskWithTheDescription) {
    imaging.pictures["/in/plans.tif"] = {600, 400, false, 3};
    int looks = 0;
    const auto look = [&](int pages) {
        ++looks;
        ASSERT_EQ(window->lbmBM.Count(), pages);
        ASSERT_TRUE(OnDisk());
        EXPECT_EQ(OnDisk()->order.size(), static_cast<std::size_t>(pages));
        EXPECT_EQ(OnDisk()->description, window->txtLinkText.Text());
    };
    Open([&] {
        desktop.AtPendingEvents(3, [&] { look(2), window->txtLinkText.SetText("Typed meanwhile"), look(2); });
        Add("/in|a.png|plans.tif");
        look(4);
        EXPECT_EQ(window->lbmBM.Cell(3, 1), "plans.tif (page 3)");
        scanner.between = [&] { look(5); };
        Click("AcquireMultiple");
        window->txtLinkText.SetText("Typed afterwards");
        look(6);
    });
    EXPECT_EQ(looks, 5);
    EXPECT_FALSE(ParseDraft("PDF draft 2\npage=x y\n"));
    EXPECT_TRUE(ParseDraft("PDF draft 2\nof a later version=7\n"));
    const auto old = ParseDraft("PDF draft 1\n100123\n400\nPlan\n200 a b.png\n");
    ASSERT_TRUE(old);
    EXPECT_EQ(DraftText(*old),
              "PDF draft 3\nlisting=100123\ndescription=Plan\npage=1 200 0 0 0 0 0 0 0 0 a b.png\norder=1\n"
              "built=1\nlength=400\n");
}

TEST_F(MakePdf, CancelNewAndCloseBox_StopAddingAndAskBeforePagesAreThrownAway) {
    Open([&] {
        desktop.AtPendingEvents(2, [&] { window->cmdCancel.Press(); });
        Add("/in|a.png|b.png");
        desktop.AtPendingEvents(1, [&] { EXPECT_FALSE(window->Unload(CloseReason::Frame)); });
        Add("/in/b.png");
        EXPECT_TRUE(window->IsShown());
        WillAsk(Answer::No);
        Click("new");
        WillAsk(Answer::No);
        EXPECT_FALSE(window->Unload(CloseReason::Frame));
        ExpectPages(1, "100");
        WillAsk(Answer::Yes);
        Click("new");
        EXPECT_FALSE(Exists(".pdf") || Exists(".dat"));
        Add("/in/a.png");
        WillAsk(Answer::Yes);
        window->cmdCancel.Press();
    });
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(Exists(".pdf"));
}

// Each page has the length of its file for a name.
TEST_F(MakePdf, Pages_DeletedMovedAndTurned_AreKeptAtOnceAndTakenBack) {
    const std::tuple<const char*, std::vector<int>, const char*, std::string> cases[] = {
        {"one deleted", {1}, "DeletePages", "301 303"},
        {"several deleted", {0, 2}, "DeletePages", "302"},
        {"all deleted", {0, 1, 2}, "DeletePages", ""},
        {"moved up together", {0, 2}, "MoveUp", "301 303 302"},
        {"moved down", {0}, "MoveDown", "302 301 303"},
        {"at the end already", {2}, "MoveDown", "301 302 303"},
        {"turned", {0, 1}, "RotateLeft", "304 305 303"},
    };
    for (const auto& [name, rows, tool, expected] : cases) {
        SCOPED_TRACE(name);
        imaging.pageLengths = {301, 302, 303, 304, 305};
        const std::string all = "301 302 303";
        const auto document = [&] {
            Click("preview");
            return std::string(text::Trim(files::ReadAll(window->PdfPath()).substr(6)));
        };
        const auto expectList = [&](const std::string& pages) {
            std::string shown, kept;
            for (int row = 0; row < window->lbmBM.Count(); ++row)
                shown += (row > 0 ? " " : "") + window->lbmBM.Cell(row, 2);
            const auto draft = OnDisk();
            ASSERT_TRUE(draft);
            for (const PageId page : draft->order)
                kept += (kept.empty() ? "" : " ") + std::to_string(draft->pages.at(page).bytes);
            EXPECT_EQ(shown, pages);
            EXPECT_EQ(kept, pages) << "after a kill";
        };
        Open([&] {
            Add("/in|a.png|b.png|a.png");
            window->lbmBM.SelectRows(rows);
            Click(tool);
            expectList(expected);
            if (!expected.empty()) {
                EXPECT_EQ(document(), expected);
            }
        });
        Renew();
        if (!expected.empty())
            desktop.Expect("A document of " + OnDisk()->PageCountText() +
                               " was begun for this listing and has not been sent. Do you want to go on with "
                               "it?\n\nNo throws its pages away.",
                           Answer::Yes);
        Open([&] {
            expectList(expected);
            if (expected != all) {
                window->cmdUndo.Press();
                expectList(all);
                EXPECT_EQ(document(), all);
                window->cmdRedo.Press();
                expectList(expected);
                window->cmdUndo.Press();
            }
            window->cmdUndo.Press();
            expectList("");
            EXPECT_FALSE(window->ActiveBar1.IsEnabled("save") || window->cmdUndo.Enabled());
            imaging.pageLengths = {400};
            Add("/in/a.png");
            expectList("400");
            EXPECT_EQ(document(), "400") << "what was taken back is gone";
            EXPECT_FALSE(window->cmdRedo.Enabled());
            window->txtLinkText.SetText("Plan");
            window->txtLinkText.PressKey(static_cast<int>(Key::Enter));
            window->Discard();
        });
    }
    EXPECT_EQ(closed, static_cast<int>(std::size(cases)));
    EXPECT_TRUE(files::List(host.UserFolder(), [](const std::string& name) {
                    return name.starts_with("CreatePDFTmp");
                }).empty());
}

TEST_F(MakePdf, TurnedPage_KeepsToTheLimitsAndTurnsBackIntoItself) {
    imaging.pictures["/in/across.jpg"] = {3000, 2000};
    Open([&] {
        imaging.pageLengths = {50'000, 101'000, 60'000};
        Add("/in/across.jpg");
        desktop.Expect("Cannot turn page 1\nMaximum size exceeded", "File is too large");
        Click("RotateRight");
        ExpectPages(1, "49KB");
        Click("RotateRight");
        ExpectPages(1, "59KB");
        EXPECT_EQ(imaging.orders.back().width, 1912) << "more than the page shows";
        EXPECT_EQ(imaging.pages.rbegin()[1].width, 1275);
        for (int i = 0; i < 3; ++i) Click("RotateRight");
        ExpectPages(1, "49KB");
    });
    EXPECT_EQ(OnDisk()->order, PageIds{1});
}

TEST_F(MakePdf, ScannedPages_AreStraightenedAndBlankOnesKeptAsideAsTheUserWants) {
    imaging.looks = {{.isBlank = true}, {.skew = 3}};
    const auto turned = [this] {
        return std::ranges::count_if(imaging.pageTurns, [](const PictureTurn& turn) {
            return turn.degrees == -3 && turn.edges == PictureTurn::Edges::Paper;
        });
    };
    Open([&] {
        Click("AcquireMultiple");
        EXPECT_EQ(window->lblScans.Caption(), "1 page was straightened. 1 blank page was left out.");
        EXPECT_EQ(Sources() + std::to_string(turned()), "Scan 2 1");
    });
    Renew();
    desktop.Expect(
        "A document of 1 page was begun for this listing and has not been sent. Do you want to go on with "
        "it?\n\nNo throws its pages away.",
        Answer::Yes);
    Open([&] {
        EXPECT_EQ(window->lblScans.Caption(), "1 blank page was left out.");
        window->cmdBringBack.Press();
        EXPECT_EQ(Sources(), "Scan 1 Scan 2 ") << "where it was";
        EXPECT_FALSE(window->lblScans.Visible());
        window->cmdUndo.Press();
        EXPECT_EQ(Sources(), "Scan 2 ");
        imaging.looks = {{.isBlank = true}};
        Click("AcquireSingle");
        EXPECT_EQ(window->lbmBM.Count(), 2) << "a page that is asked for alone is wanted";
        for (const char* tool : {"StraightenScans", "LeaveOutBlank"}) Click(tool);
        window->Discard();
    });
    Renew();
    imaging.looks = {{.isBlank = true}, {.skew = 3}};
    Open([&] {
        Click("AcquireMultiple");
        EXPECT_EQ(Sources() + std::to_string(turned()), "Scan 1 Scan 2 1");
        EXPECT_EQ(window->lblScans.Caption(), "");
        window->Discard();
    });
}

TEST_F(MakePdf, FrontsThenBacks_ComeInTheOrderOfTheSheetsOrAreAllKept) {
    const std::string turn =
        "2 fronts were scanned. Turn the whole stack over, put it back into the feeder, and press OK to scan "
        "the backs, the last one first.";
    Open([&] {
        Add("/in/a.png");
        imaging.looks = {{}, {}, {}, {.isBlank = true}};
        desktop.Expect(turn, Answer::Ok);
        Click("FrontsThenBacks");
        EXPECT_EQ(Sources(), "a.png Scan 1 Scan 2 Scan 3 ");
        window->cmdBringBack.Press();
        EXPECT_EQ(Sources(), "a.png Scan 1 Scan 4 Scan 2 Scan 3 ");
        EXPECT_EQ(OnDisk()->order.size(), 5U);
        for (int i = 0; i < 2; ++i) window->cmdUndo.Press();
        EXPECT_EQ(Sources(), "a.png ") << "both passes are one step";

        desktop.Expect(turn, Answer::Cancel);
        Click("FrontsThenBacks");
        EXPECT_EQ(window->lbmBM.Count(), 3) << "the fronts stay";
        int scans = 0;
        scanner.between = [&] { scanner.sheets = ++scans == 1 ? 2 : 1; };
        desktop.Expect(turn, Answer::Ok);
        desktop.Expect(
            "2 fronts and 1 back were scanned, so they cannot be put in order: two sheets may have gone "
            "through at once.\n\nAll of them are in the document, first the fronts, then the backs with the "
            "last one first. Move them to their places, or undo and scan again.");
        Click("FrontsThenBacks");
        EXPECT_EQ(window->lbmBM.Count(), 6);
    });
}

TEST_F(MakePdf, RunEndedWithPages_AreOfferedToTheirListingOnly) {
    Open([&] {
        Add("/in/a.png");
        window->txtLinkText.SetText("Plan");
    });
    Renew(200200);
    const std::string other =
        "A document that was begun for listing #100123 has not been sent. Do you want to throw its pages "
        "away and begin a new one?\n\nNo keeps them: select that listing to go on with its document.";
    desktop.Expect(other, Answer::No);
    window->Display(nullptr);
    Renew();
    desktop.Expect(
        "A document of 1 page was begun for this listing and has not been sent. Do you want to go on with "
        "it?\n\nNo throws its pages away.",
        Answer::Yes);
    pdf.calls.clear();
    Open([&] {
        EXPECT_EQ(window->LinkText() + window->lbmBM.Cell(0, 1), "Plana.png");
        Add("/in/b.png");
        ExpectPages(2, "200");
    });
    EXPECT_EQ(pdf.calls.at(1), "open");
    files::WriteWhole(host.UserFolder() + "CreatePDFTmp.dat", "damaged");
    Renew();
    desktop.Expect(
        "A document that was begun earlier has not been sent, and for which listing it is cannot be read. Do "
        "you want to throw its pages away and begin a new one?\n\nNo keeps them in this file:\n" +
            host.UserFolder() + "CreatePDFTmp.pdf",
        Answer::Yes);
    Open([&] { EXPECT_FALSE(Exists(".pdf")); });
}

TEST_F(MakePdf, Tools_AddPagesAndUseTheFileAsItIs) {
    const std::string copy = host.CityFolder() + "copy.pdf";
    Open([&] {
        Add("/in/a.png");
        desktop.Choose(copy);
        desktop.clipboardFiles = {"/in/b.png"};
        for (const char* tool : {"save", "preview", "help", "paste", "AcquireSingle", "AcquireMultiple"})
            Click(tool);
        ExpectPages(5, "500");
        EXPECT_EQ(window->lbmBM.Cell(4, 1), "Scan 3");
    });
    EXPECT_EQ(desktop.saveDialogs.at(0).name, "100123.pdf");
    EXPECT_EQ(files::ReadAll(copy).size(), 100U);
    EXPECT_EQ(desktop.opened,
              (Texts{window->PdfPath(), host.HelpSite() + "/Tutorials/DocManager/CreatePDF.htm"}));
}

}  // namespace lumarin
