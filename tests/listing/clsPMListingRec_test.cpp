#include "listing/clsPMListingRec.h"

#include <filesystem>

#include "listing/ListingFiles.h"
#include "listing/StateFile.h"
#include "support/PhotoWindowTest.h"
#include "support/Reason.h"

namespace lumarin {

/// Listing 100123, worked in the photo window.
class ListingTest : public testing::PhotoWindowTest {
protected:
    ListingState Saved() const { return photo_journal::Recover(host.WorkingFolder(), 100123).state; }
    static std::string PhotoText(const std::string& description, const std::string& path) {
        return description + " " + std::to_string(files::FileLength(path));
    }
    Texts Order() const {
        Texts shown;
        for (int row = 0; row < window->PhotoList.Count(); ++row)
            shown.push_back(PhotoText(window->PhotoList.At(row).text, window->PhotoList.At(row).picture));
        return shown;
    }
    /// "description length" of each photo: so they are shown, and so a later run finds them.
    void ExpectPhotos(const Texts& expected) {
        Texts saved;
        const ListingState state = Saved();
        for (const std::string& name : listing_files::List(host.WorkingFolder(), 100123, ".jpg"))
            saved.push_back(PhotoText(state.Photos.at(saved.size()).DescText, host.WorkingFolder() + name));
        EXPECT_EQ(Order(), expected);
        EXPECT_EQ(saved, expected);
        EXPECT_EQ(state.PhotoCount, window->PhotoList.Count());
    }
};

TEST_F(ListingTest, Load_Descriptions_FirstEntryOfTheColumnIsNoCode) {
    const std::pair<const char*, Texts> cases[] = {
        {"", {"Front 100", "Front 200"}},
        {"X,2111,2112", {"Rear 100", "Kitchen 200"}},
        {"X,2112", {"Kitchen 100", "Front 200"}},
    };
    for (const auto& [codes, photos] : cases) {
        GivenListing(100123, {100, 200}, codes);
        OpenWith({"100123"});
        ExpectPhotos(photos);
        window->cmdRemove.Press();
    }
    EXPECT_EQ(host.fetched.front(), "100123 1 100,200");
}

TEST_F(ListingTest, Load_Access_FollowsTheScope) {
    const std::tuple<int, const char*, const char*, const char*, const char*, bool, bool> cases[] = {
        {10, "A101", "X", "9", "", false, true},      {10, "A102", "OF1", "1", "", false, false},
        {60, "X", "OF1", "9", "", false, true},       {60, "X", "OF2", "9", ",OF2,OF1,", true, true},
        {60, "X", "OF2", "9", ",OF1,", false, false}, {60, "X", "OF2", "9", ",OF2,OF11,", true, false},
        {90, "X", "X", "1", "", false, true},         {90, "A101", "OF1", "2", "", false, false},
        {100, "X", "X", "9", "", false, true},
    };
    GivenListing(100123);
    for (const auto& [level, agent, office, board, managed, several, may] : cases) {
        std::tie(host.level, host.agent, host.office, host.board, host.managedOffices, host.severalOffices) =
            std::tie(level, agent, office, board, managed, several);
        Open();
        if (!may) desktop.Expect("100123 Is not a valid listing number");
        Enter("100123");
        EXPECT_EQ(window->RecList.Count() == 1, may) << level << managed;
        if (may) window->cmdRemove.Press();
    }
}

TEST_F(ListingTest, Load_NoListing_AsksForRentalsOnlyWhenTheyAreInUse) {
    GivenListing(100125, std::vector<std::size_t>(27, 1));
    Open();
    desktop.Expect(
        "Subscript out of range: 27, the database's PhotoCount of listing 100125, which can have 0 to 26 "
        "photos");
    Enter("100125");
    host.queries.clear();
    for (const std::size_t queries : {1, 3}) {
        desktop.Expect("77 Is not a valid listing number");
        Enter("77");
        ASSERT_EQ(host.queries.size(), queries);
        files::EnsureFolder(host.CityFolder() + "Users/Default/Rental/someone");
    }
    EXPECT_EQ(host.queries[2],
              "SELECT ListNum,PhotoCount,PhotoVersion,PhotoDesc,StreetNumber,StreetName,StreetDirection,"
              "ListOfficeId,ListAgentId,RevisionNumber,BoardId From Rentals Left join photo on "
              "Rentals.ListNum = Photo.PhoListNum WHERE Rentals.ListNum = 77;");
}

TEST_F(ListingTest, Load_FailsAtAnyStep_SaysWhyAndLeavesNothing) {
    GivenListing(100123, {100, 200});
    Open();
    int calls = 0, failing = 0;
    host.onRecordset = [&](const std::string& operation) {
        if (++calls == failing) throw Error(1, "db", operation + " failed");
    };
    Enter("100123");
    window->cmdRemove.Press();
    desktop.BeLenient([](Form&) {});
    for (const int all = calls; failing < all;) {
        ++failing;
        calls = host.closedRecordsets = 0;
        Enter("100123");
        EXPECT_TRUE(desktop.messages.back().text.starts_with("100123 Is not a valid listing number\n\n"));
        EXPECT_TRUE(desktop.messages.back().text.ends_with(" failed"));
        EXPECT_EQ(desktop.messages.size(), static_cast<std::size_t>(failing));
        EXPECT_EQ(host.closedRecordsets, 1) << failing;
        EXPECT_TRUE(WorkingFiles().empty());
    }
    EXPECT_EQ(desktop.messages.back().text.substr(38), "Close failed");
}

TEST_F(ListingTest, Load_OverUnreadableWork_NeverLosesIt) {
    const std::string aside = host.WorkingFolder() + "Set aside";
    for (const char* kept : {"/100123a.jpg", "/2/100123a.jpg"}) {
        GivenUnreadableWork("100123");
        for (const char* unfinished : {"100123c.jpg.part", "VEL42A101.zip"})
            files::WriteWhole(host.WorkingFolder() + unfinished, "");
        Open();
        host.onRecordset = [](const std::string&) { throw Error(1, "db", "gone"); };
        desktop.Expect("100123 Is not a valid listing number\n\ngone");
        Enter("100123");
        host.onRecordset = [](const std::string&) {};
        EXPECT_EQ(WorkingFiles(), (std::set<std::string>{"100123.dat", "100123a.jpg"}));
        GivenListing(100123, {100});
        Enter("100123");
        ExpectPhotos({"Front 100"});
        EXPECT_EQ(files::ReadAll(aside + kept), "precious");
    }
    EXPECT_EQ(files::ReadAll(aside + "/100123a.jpg"), "precious");
    window->cmdSend.Press();
    EXPECT_EQ(WorkingFiles(), std::set<std::string>()) << "sent, and not taken for the unreadable work";

    GivenUnreadableWork("100123");
    Open();
    std::filesystem::remove_all(aside);
    files::WriteWhole(aside, "a file of that name");
    desktop.Expect(testing::ReasonOf([&] { files::EnsureFolder(aside + files::Separator); }));
    Enter("100123");
    EXPECT_EQ(files::ReadAll(host.WorkingFolder() + "100123a.jpg"), "precious");
}

TEST_F(ListingTest, AddPhoto_TooManyOrTheSameLength_IsRefused) {
    GivenListing(100123, {100, 200, 300});
    OpenWith({"100123"});
    WillCapture({200, 400});
    desktop.Expect("Duplicate photos not allowed", Answer::Cancel);  // which does not end the import
    for (const Answer answer : {Answer::Ok, Answer::Cancel})
        desktop.Expect("Maximum number of photos exceeded", answer, "Photos exceeded");
    window->PhotoList.DropFiles({"/in/a.png", "/in/a.png", "/in/a.png", "/in/a.png", "/in/a.png"});
    EXPECT_EQ(desktop.messages.back().buttons, Buttons::OkCancel);
    ExpectPhotos({"Front 100", "Front 200", "Front 300", "Front 400"});
    for (const char* tool : {"Open", "Paste", "AcquireSingle"})
        EXPECT_FALSE(window->Menu.IsEnabled(tool)) << tool;
    window->Menu.ClickTool("DeletePhoto");
    EXPECT_TRUE(window->Menu.IsEnabled("Open") && window->Menu.IsEnabled("AcquireSingle"));
}

TEST_F(ListingTest, Photos_AddedMovedAndRemoved_KeepTheirFilesAndDescriptions) {
    GivenListing(100123, {100, 200});
    OpenWith({"100123"});
    imaging.captureLengths = {300};
    desktop.Play("frmPhotoCrop", [](frmPhotoCrop& crop) {
        crop.cmbView.SetListIndex(1);
        crop.cmdCapture.Press();
    });
    window->PhotoList.DropFiles({"/in/a.png"});
    ExpectPhotos({"Front 100", "Front 200", "Rear 300"});
    EXPECT_EQ(Saved().Photos[2].DescCode, "2111");

    window->cmdMove(0).Press();
    ExpectPhotos({"Front 100", "Rear 300", "Front 200"});
    EXPECT_EQ(window->PhotoList.Selected(), 1);
    EXPECT_TRUE(window->cmdMove(0).Enabled() && window->cmdMove(1).Enabled());
    for (int i = 0; i < 2; ++i) window->PhotoList.PressKey({.key = Key::Up, .control = true});
    ExpectPhotos({"Rear 300", "Front 100", "Front 200"});
    EXPECT_FALSE(window->cmdMove(0).Enabled());

    window->PhotoList.PressKey({Key::Delete});
    ExpectPhotos({"Front 100", "Front 200"});
    EXPECT_EQ(window->PhotoList.Selected(), 0);
    for (int i = 0; i < 3; ++i) window->Menu.ClickTool("DeletePhoto");
    ExpectPhotos({});
    EXPECT_FALSE(window->Menu.IsEnabled("View"));
    EXPECT_EQ(window->imgMain.Image(), nullptr);
}

TEST_F(ListingTest, Steps_UndoneAndDoneAgain_InThisRunOrTheNext_GiveWhatWasThere) {
    files::WriteWhole(host.CityFolder() + "CityInfo.ini", "[Lumarin]\nPhoto Maximum=6\n");
    GivenListing(100123, {100, 200, 300, 400, 500});
    const auto key = [&](const std::vector<int>& rows, Key pressed, bool control) {
        window->PhotoList.SetMultiSelect(true);
        window->PhotoList.SelectRows(rows);
        window->PhotoList.PressKey({.key = pressed, .control = control});
    };
    const std::pair<const char*, std::function<void()>> steps[] = {
        {"Add photo F", [&] { WillCapture({600}), window->PhotoList.DropFiles({"/in/a.png"}); }},
        {"Move 3 photos",
         [&] {
             key({0, 2, 5}, Key::Up, true);
         }},
        {"Move 2 photos",
         [&] {
             key({1, 4}, Key::Down, true);
         }},
        {"Move photo B", [&] { key({1}, Key::Down, true); }},
        {"Describe 2 photos",
         [&] {
             key({3, 4}, Key::None, false), window->Menu.ClickTool("View_2112");
         }},
        {"Delete 3 photos",
         [&] {
             key({0, 3, 5}, Key::Delete, false);
         }},
        {"Delete photo C", [&] { key({2}, Key::Delete, false); }},
    };
    for (const bool restarts : {false, true}) {
        OpenWith({"100123"});
        std::vector<Texts> orders{Order()};
        for (const auto& [name, act] : steps) {
            if (restarts) Open();
            act();
            EXPECT_EQ(window->Menu.At("Undo").description, std::string("Undo: ") + name);
            orders.push_back(Order());
        }
        const auto go = [&](const char* tool, std::size_t step, std::size_t order) {
            if (restarts) Open();
            EXPECT_EQ(window->Menu.At(tool).description, std::string(tool) + ": " + steps[step].first);
            window->Menu.ClickTool(tool);
            ExpectPhotos(orders[order]);
        };
        for (std::size_t step = std::size(steps); step-- > 0;) go("Undo", step, step);
        EXPECT_FALSE(window->Menu.IsEnabled("Undo"));
        for (std::size_t step = 0; step < std::size(steps); ++step) go("Redo", step, step + 1);
        EXPECT_EQ(orders[2],
                  (Texts{"Front 100", "Front 300", "Front 200", "Front 400", "Front 600", "Front 500"}));
        window->cmdRemove.Press();
    }
}

TEST_F(ListingTest, Undo_KeptFilesOrStepsDamaged_SaysSoAndCostsNothingElse) {
    const std::string undo = host.WorkingFolder() + "Undo/", journal = host.WorkingFolder() + "100123.jnl";
    GivenListing(100123, {100, 200, 300, 400});
    OpenWith({"100123"});
    window->PhotoList.SetMultiSelect(true);
    window->PhotoList.SelectRows({0, 1, 3});
    window->Menu.ClickTool("DeletePhoto");
    files::Delete(undo + "100123-1.jpg");
    files::WriteWhole(undo + "100123-4.jpg", "damaged");
    desktop.Expect(
        "These photos of listing 100123 cannot come back, because the files in which they were kept are "
        "missing "
        "or damaged:\n\nFront\nFront\n\nEverything else was done.",
        "frmLumarin-Undo");
    window->Menu.ClickTool("Undo");
    ExpectPhotos({"Front 200", "Front 300"});
    window->Menu.ClickTool("Redo");
    ExpectPhotos({"Front 300"});

    std::string bytes = files::ReadAll(journal);
    ++bytes.back();
    files::WriteWhole(journal, bytes);
    desktop.Expect(
        "What was done to these listings before can no longer be undone, because the record of it is "
        "damaged:\n\n"
        "100123\n\nTheir photos and descriptions are not affected. Deleted photos that were kept for them "
        "are now "
        "in the folder \"Set aside\" in " +
        host.WorkingFolder());
    Open();
    ExpectPhotos({"Front 300"});
    EXPECT_FALSE(window->Menu.IsEnabled("Undo"));
    EXPECT_EQ(files::FileLength(host.WorkingFolder() + "Set aside/100123-2.jpg"), 200U);
}

}  // namespace lumarin
