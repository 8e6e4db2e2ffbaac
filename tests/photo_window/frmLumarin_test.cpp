#include "photo_window/frmLumarin.h"

#include "PhotoWindowTest.h"
#include "base/Files.h"
#include "entry/Settings.h"
#include "lookup/frmFindProperty.h"

namespace lumarin {
namespace {

using Texts = std::vector<std::string>;

class frmLumarinTest : public testing::PhotoWindowTest {};

TEST_F(frmLumarinTest, Enter_ListingNumbers_GathersEachOnce) {
    GivenListing(100123, {100, 200, 300});
    GivenListing(100124);
    Open();
    EXPECT_FALSE(window->cmdAdd.Enabled());
    Enter("100123");
    Enter("100124");
    Enter("100123");
    EXPECT_EQ(ListTexts(window->RecList), (Texts{"100123", "100124"}));
    EXPECT_EQ(window->RecList.Selected(), 0);
    EXPECT_EQ(window->PhotoList.Count(), 3);
    EXPECT_TRUE(window->cmdAdd.Enabled());
    EXPECT_TRUE(window->Menu.IsEnabled("Open"));
    EXPECT_TRUE(window->cmdSend.Enabled());
    EXPECT_EQ(window->RecList.Columns()[2].caption, "Dir");
}

TEST_F(frmLumarinTest, Enter_UnknownNumber_SaysSoInTheRightWords) {
    Open();
    desktop.Expect("0123 Is not a valid listing number");
    Enter("0123");
    EXPECT_EQ(desktop.messages[0].title, "Listing not found");
    EXPECT_TRUE(host.queries.empty());
    desktop.Expect("No listings Found for Elm");
    EXPECT_EQ(window->LookUpListing("999", "Elm"), LookupResult::NotFound);
}

TEST_F(frmLumarinTest, Open_SeveralFiles_AbortEndsAndCancelSkips) {
    GivenListing(100124);
    Open();
    Enter("100124");
    const std::string three("/in\0a.png\0b.png\0a.png", 21);
    const auto press = [](Button frmPhotoCrop::*button) {
        return [button](Form& form) { (static_cast<frmPhotoCrop&>(form).*button).Press(); };
    };
    desktop.Choose(three);
    desktop.Play("frmPhotoCrop", press(&frmPhotoCrop::cmdCancel));
    WillCapture({500});
    desktop.Play("frmPhotoCrop", press(&frmPhotoCrop::cmdAbort));
    window->Menu.ClickTool("Open");
    EXPECT_EQ(window->PhotoList.Count(), 1);
    EXPECT_EQ(desktop.dialogs[0].title, "Import Photo");
    EXPECT_TRUE(desktop.dialogs[0].preview);
}

TEST_F(frmLumarinTest, SmartLoad_FileNames_ChooseTheListing) {
    GivenListing(12345);
    Open();
    imaging.pictures["/in/12345-front.jpg"] = {800, 500, false};
    WillCapture({300});
    desktop.Choose(
        std::string("/in\0"
                    "12345-front.jpg\0"
                    "123.jpg\0"
                    "99999x.jpg",
                    38));
    desktop.Expect("99999 Is not a valid listing number");
    desktop.Expect(
        "/in/123.jpg was not imported: its name does not start with a listing number (4 to 6 digits, and "
        "something behind them).\n"
        "/in/99999x.jpg was not imported: there is no listing 99999 to put it in.");
    window->Menu.ClickTool("SmartLoad");
    EXPECT_EQ(ListTexts(window->RecList), Texts{"12345"});
    EXPECT_EQ(window->PhotoList.Count(), 1);
    EXPECT_EQ(desktop.messages.back().title, "frmLumarin-SmartLoad");
}

TEST_F(frmLumarinTest, FilesDropped_OnListOrPicture_AreImported) {
    GivenListing(100124);
    Open();
    window->PhotoList.DropFiles({"/in/a.png"});  // no listing yet: not accepted
    Enter("100124");
    WillCapture({300, 400});
    window->PhotoList.DropFiles({"/in/a.png"});
    window->imgMain.DropFiles({"/in/b.png"});
    EXPECT_EQ(window->PhotoList.Count(), 2);
}

TEST_F(frmLumarinTest, Clipboard_CopyThenPaste_AsksAtTheEnd) {
    GivenListing(100123, {100});
    imaging.pictures[host.WorkingFolder() + "100123a.jpg"] = {480, 300, true};
    Open();
    Enter("100123");
    window->Menu.ClickTool("Copy");
    ASSERT_NE(desktop.clipboard, nullptr);
    EXPECT_EQ(desktop.clipboard->width, 480);
    WillCapture({300});
    window->Menu.ClickTool("Paste");
    EXPECT_EQ(window->PhotoList.Count(), 2);
    desktop.Expect(
        "You have placed a large amount of data in the clipboard. This data may take up quite a bit of "
        "memory and could "
        "degrade system performance if left on the clipboard. Would you like to leave this data on the "
        "clipboard so that "
        "it will be available to other applications?",
        Answer::No);
    window->Unload();
    EXPECT_EQ(desktop.clipboard, nullptr);
    EXPECT_EQ(desktop.messages[0].title, "Data in the clipboard");
}

TEST_F(frmLumarinTest, ListingClicked_AnotherOne_SavesTheFirstAndShowsIt) {
    GivenListing(100123, {100, 200});
    GivenListing(100124);
    Open();
    Enter("100123");
    window->PhotoList.Select(1);
    EXPECT_TRUE(window->PhotoList.PressKey({.key = Key::Up, .control = true}));
    EXPECT_EQ(window->PhotoList.Selected(), 0);
    EXPECT_EQ(WorkingFiles().count("100123.jnl"), 1U);
    Enter("100124");
    window->RecList.Select(0);
    window->RecList.Select(1);
    EXPECT_EQ(WorkingFiles().count("100123.jnl"), 0U);  // its state file is up to date
    EXPECT_EQ(window->PhotoList.Count(), 0);
    EXPECT_FALSE(window->Menu.IsEnabled("Copy"));
}

TEST_F(frmLumarinTest, RemoveListing_WithUnsentChanges_Asks) {
    GivenListing(100123, {100, 200});
    GivenListing(100124);
    Open();
    Enter("100124");
    Enter("100123");
    bool used = false;
    window->PhotoList.Select(0);
    window->PhotoList.KeyPressed.Raise({Key::Delete}, used);
    const std::string question =
        "The changes to the photos of listing 100123 were not sent. Do you want to remove the listing and "
        "lose them?";
    desktop.Expect(question, Answer::No);
    window->cmdRemove.Press();
    EXPECT_EQ(window->RecList.Count(), 2);
    desktop.Expect(question, Answer::Yes);
    window->cmdRemove.Press();
    EXPECT_EQ(ListTexts(window->RecList), Texts{"100124"});
    EXPECT_EQ(window->RecList.Selected(), 0);
    window->RecList.PressKey({Key::Delete});  // unchanged: no question
    EXPECT_EQ(window->RecList.Count(), 0);
    EXPECT_TRUE(WorkingFiles().empty());
    for (const char* tool : {"Open", "SendPhotos", "DeletePhoto", "View", "Copy", "RemoveEntry"})
        EXPECT_FALSE(window->Menu.IsEnabled(tool)) << tool;
    EXPECT_FALSE(window->cmdRemove.Enabled() || window->cmdSend.Enabled() || window->imgMain.AcceptsFiles());
}

TEST_F(frmLumarinTest, Reopen_AfterAKill_ShowsTheListingsAgain) {
    GivenListing(100123, {100});
    GivenListing(100124);
    Open();
    Enter("100123");
    WillCapture({300});
    desktop.Choose("/in/a.png");
    window->Menu.ClickTool("Open");
    Enter("100124");
    files::WriteWhole(host.WorkingFolder() + "100200.dat", "garbage");
    files::WriteWhole(host.WorkingFolder() + "100123c.jpg.part", "half");
    files::WriteWhole(host.WorkingFolder() + "VEL42A101.zip", "not sent");
    static frmLumarin* volatile killed;
    killed = window.release();  // nothing is unloaded; volatile, so that it is really held and no leak
    desktop.Expect("The work on some listings could not be taken up. Its files were left in the folder " +
                   host.WorkingFolder() +
                   "\n\n100200.dat\nThe saved state of a listing cannot be read: it is cut short at byte 7");
    Open();
    EXPECT_EQ(ListTexts(window->RecList), (Texts{"100123", "100124"}));
    EXPECT_EQ(window->PhotoList.Count(), 2);
    EXPECT_EQ(WorkingFiles().count("100123c.jpg.part") + WorkingFiles().count("VEL42A101.zip"), 0U);
    EXPECT_EQ(WorkingFiles().count("100200.dat"), 1U);
}

TEST_F(frmLumarinTest, Unload_MovedAndImported_WritesOnlyWhatChanged) {
    GivenListing(100124);
    Open();
    window->Unload();
    EXPECT_FALSE(files::FileExists(host.UserFolder() + "User.ini"));
    Open();
    Enter("100124");
    desktop.Choose("/in/a.png");
    WillCapture({300});
    window->Menu.ClickTool("Open");
    window->MoveTo(2415.5, 1830);
    window->Unload();
    EXPECT_EQ(files::ReadAll(host.UserFolder() + "User.ini"),
              "[Photos]\r\nDefault Import Dir=/in/\r\nStart Up Position=2415.5,1830\r\n");
}

TEST_F(frmLumarinTest, FilePreview_Toggled_IsStoredForTheInstallation) {
    Open();
    window->Menu.ClickTool("FilePreview");
    EXPECT_FALSE(window->Menu.IsChecked("FilePreview"));
    EXPECT_EQ(settings::ReadText(host.CityFolder() + "CityInfo.ini", "Lumarin", "FilePreview", ""), "False");
    Open();
    EXPECT_FALSE(window->Menu.IsChecked("FilePreview"));
}

TEST_F(frmLumarinTest, ContextMenu_DescriptionChosen_ChangesThePhoto) {
    GivenListing(100123, {100, 200});
    Open();
    Enter("100123");
    window->PhotoList.Select(1);
    window->PhotoList.MouseWentUp({MouseButton::Right, 0, 0});
    window->RecList.MouseWentUp({MouseButton::Right, 0, 0});
    EXPECT_EQ(desktop.poppedUp, (Texts{"PhotoPopup", "ListingPopup"}));
    window->Menu.ClickTool("View_2112");
    EXPECT_EQ(ListTexts(window->PhotoList), (Texts{"Front", "Kitchen"}));
}

TEST_F(frmLumarinTest, SortNames_Set_KeepsTheListSorted) {
    files::WriteWhole(host.CityFolder() + "CityInfo.ini", "[Lumarin]\nSortNames=1\n");
    for (const int number : {100150, 100109, 100120}) GivenListing(number);
    Open();
    for (const char* number : {"100150", "100109", "100120"}) Enter(number);
    EXPECT_EQ(ListTexts(window->RecList),
              (Texts{"100109", "100120", "100150"}));  // one street: by house number
    window->RecList.ClickColumn(0);
    window->RecList.ClickColumn(0);
    EXPECT_EQ(ListTexts(window->RecList), (Texts{"100150", "100120", "100109"}));
}

TEST_F(frmLumarinTest, Paste_CopiedPictureFiles_AreImportedAsFiles) {
    GivenListing(100124);
    Open();
    Enter("100124");
    desktop.clipboardFiles = {"/in/a.png", "/in/b.png"};
    WillCapture({300, 400});
    window->Menu.ClickTool("Paste");
    EXPECT_EQ(window->PhotoList.Count(), 2);
}

TEST_F(frmLumarinTest, Drop_SomethingElse_IsNeverSilent) {
    Open();
    desktop.Expect(
        "Only picture files of this computer can be dropped here. Save the picture as a file first, then "
        "drop or open that file.");
    window->imgMain.DropOther();
}

TEST_F(frmLumarinTest, Open_SeveralFiles_SaysWhichOneOfHowMany) {
    GivenListing(100124);
    Open();
    Enter("100124");
    std::vector<std::string> seen;
    for (int i = 0; i < 2; ++i)
        desktop.Play("frmPhotoCrop", [&](Form& form) {
            seen.push_back(static_cast<frmPhotoCrop&>(form).lblPicture.Caption());
            static_cast<frmPhotoCrop&>(form).cmdCancel.Press();
        });
    desktop.Choose(std::string("/in\0a.png\0b.png", 15));
    window->Menu.ClickTool("Open");
    EXPECT_EQ(seen, (Texts{"Picture 1 of 2", "Picture 2 of 2"}));
}

TEST_F(frmLumarinTest, Browse_ChosenListing_IsEnteredAsIfTyped) {
    GivenListing(100124);
    Open();
    desktop.Play("frmFindProperty", [this](Form& form) {
        auto& search = static_cast<frmFindProperty&>(form);
        EXPECT_EQ(search.cmbListingOwner.Text(), "My listings");
        EXPECT_EQ(search.cmbStatus.Text(), "Active");
        search.List.AddRow({.text = "100124", .key = "100124"});
        search.List.Select(0);
        search.cmdOK.Press();
    });
    window->cmdBrowse.Press();
    EXPECT_EQ(ListTexts(window->RecList), Texts{"100124"});
    EXPECT_NE(host.queries[0].find("(LstStatus = '2001' And ListAgentID = 'A101')"), std::string::npos)
        << host.queries[0];
}

TEST_F(frmLumarinTest, PhotoClicked_ViewerAndHelp_Open) {
    GivenListing(100123, {100});
    imaging.pictures[host.WorkingFolder() + "100123a.jpg"] = {480, 300, true};
    Open();
    Enter("100123");
    window->imgMain.MouseWentUp({MouseButton::Left, 10, 10});
    ASSERT_EQ(desktop.shown.count("frmPhotoViewer"), 1U);
    EXPECT_EQ(desktop.shown["frmPhotoViewer"]->Caption(), "Front - 100123");
    window->Menu.ClickTool("miHelp");
    EXPECT_EQ(desktop.helpPages[0], std::make_pair(host.HelpFilePath(), window->HelpContext()));
}

TEST_F(frmLumarinTest, Exit_AndFrameClose_EndTheJob) {
    Open();
    window->Menu.ClickTool("Exit");
    EXPECT_EQ(host.endedJobs, std::vector<int>{7});
    window->Unload(CloseReason::Frame);
    EXPECT_EQ(host.endedJobs, (std::vector<int>{7, 7}));
}

}  // namespace
}  // namespace lumarin
