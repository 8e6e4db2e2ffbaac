#include "documents/builder/MakePdf.h"

namespace lumarin {

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

}  // namespace lumarin
