#include "documents/builder/MakePdf.h"

namespace lumarin {

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
