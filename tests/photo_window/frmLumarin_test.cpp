#include "photo_window/frmLumarin.h"

#include "PhotoWindowTest.h"
#include "entry/Settings.h"
#include "lookup/frmFindProperty.h"

namespace lumarin {
namespace {

class frmLumarinTest : public testing::PhotoWindowTest {};

TEST_F(frmLumarinTest, Enter_ListingNumbers_GathersEachOnce) {
    GivenListing(100123, {100, 200, 300});
    OpenWith({});
    EXPECT_FALSE(window->cmdAdd.Enabled());
    OpenWith({"100123", "100124", "100123"});
    EXPECT_EQ(ListTexts(window->RecList), (Texts{"100123", "100124"}));
    EXPECT_EQ(window->RecList.At(0).subItems, (Texts{"23", "N", "Elm St"}));
    EXPECT_EQ(window->RecList.Selected(), 0);
    EXPECT_EQ(window->PhotoList.Count(), 3);
    EXPECT_TRUE(window->cmdAdd.Enabled() && window->Menu.IsEnabled("Open") && window->cmdSend.Enabled());
    EXPECT_EQ(window->RecList.Columns()[2].caption, "Dir");
    window->RecList.Select(1);
    EXPECT_EQ(window->PhotoList.Count(), 0);
    EXPECT_FALSE(window->Menu.IsEnabled("Copy"));
    desktop.Expect("0123 Is not a valid listing number", "Listing not found");
    Enter("0123");
    desktop.Expect("No listings Found for Elm");
    EXPECT_EQ(window->LookUpListing("999", "Elm"), LookupResult::NotFound);
}

TEST_F(frmLumarinTest, Open_SeveralFiles_AbortEndsAndCancelSkips) {
    OpenWith({"100124"});
    desktop.Choose(Selection("/in|a.png|b.png|a.png|b.png"));
    desktop.Play("frmPhotoCrop", [](frmPhotoCrop& crop) { crop.cmdCancel.Press(); });
    WillCapture({500});
    desktop.Play("frmPhotoCrop", [](frmPhotoCrop& crop) {
        EXPECT_EQ(crop.lblPicture.Caption(), "Picture 3 of 4");
        crop.cmdAbort.Press();
    });
    window->Menu.ClickTool("Open");
    EXPECT_EQ(window->PhotoList.Count(), 1);
    EXPECT_EQ(desktop.dialogs.at(0).title, "Import Photo");
    EXPECT_TRUE(desktop.dialogs[0].preview);
}

TEST_F(frmLumarinTest, SmartLoad_FileNames_ChooseTheListing) {
    const char* refused[] = {"123.jpg", "1234567a.jpg", "123456", "a12345.jpg"};
    const char* taken[] = {"1234.jpg", "12345-front.jpg", "123456a"};
    std::string selection = "/12345", told;
    for (const std::string name : refused) {
        selection += "|" + name;
        told += "/12345/" + name +
                " was not imported: its name does not start with a listing number (4 to 6 digits, and "
                "something behind them).\n";
    }
    for (const std::string name : taken) {
        selection += "|" + name;
        imaging.pictures["/12345/" + name] = {800, 500, false};
        GivenListing(std::stoi(name));
    }
    Open();
    WillCapture({300, 400, 500});
    desktop.Choose(Selection(selection + "|99999x.jpg"));
    desktop.Expect("99999 Is not a valid listing number");
    desktop.Expect(told + "/12345/99999x.jpg was not imported: there is no listing 99999 to put it in.",
                   "frmLumarin-SmartLoad");
    window->Menu.ClickTool("SmartLoad");
    EXPECT_EQ(ListTexts(window->RecList), (Texts{"1234", "12345", "123456"}));
    EXPECT_EQ(window->PhotoList.Count(), 1);
}

TEST_F(frmLumarinTest, Files_DroppedOrPasted_AreImportedAndAnythingElseIsRefused) {
    OpenWith({});
    window->PhotoList.DropFiles({"/in/a.png"});  // no listing yet: not accepted
    OpenWith({"100124"});
    WillCapture({300, 400, 500, 600});
    window->PhotoList.DropFiles({"/in/a.png"});
    window->imgMain.DropFiles({"/in/b.png"});
    desktop.clipboardFiles = {"/in/a.png", "/in/b.png"};
    window->Menu.ClickTool("Paste");
    EXPECT_EQ(window->PhotoList.Count(), 4);
    desktop.Expect(
        "Only picture files of this computer can be dropped here. Save the picture as a file first, then "
        "drop or open that file.");
    window->imgMain.DropOther();
}

TEST_F(frmLumarinTest, Clipboard_CopyThenPaste_AsksAtTheEnd) {
    GivenListing(100123, {100});
    imaging.pictures[host.WorkingFolder() + "100123a.jpg"] = {480, 300, true};
    OpenWith({"100123"});
    window->Menu.ClickTool("Copy");
    ASSERT_NE(desktop.clipboard, nullptr);
    EXPECT_EQ(desktop.clipboard->width, 480);
    WillCapture({300});
    window->Menu.ClickTool("Paste");
    EXPECT_EQ(window->PhotoList.Count(), 2);
    desktop.Expect(
        "You have placed a large amount of data in the clipboard. This data may take up quite a bit of "
        "memory and could degrade system performance if left on the clipboard. Would you like to leave this "
        "data on the clipboard so that it will be available to other applications?",
        Answer::No, "Data in the clipboard");
    window->Unload();
    EXPECT_EQ(desktop.clipboard, nullptr);
}

TEST_F(frmLumarinTest, RemoveListing_WithUnsentChanges_Asks) {
    GivenListing(100123, {100, 200});
    OpenWith({"100124", "100123"});
    window->PhotoList.Select(0);
    window->PhotoList.PressKey({Key::Delete});
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        EXPECT_EQ(window->RecList.Count(), 2);
        desktop.Expect(
            "The changes to the photos of listing 100123 were not sent. Do you want to remove the listing "
            "and lose them?",
            answer);
        window->cmdRemove.Press();
    }
    EXPECT_EQ(ListTexts(window->RecList), Texts{"100124"});
    EXPECT_EQ(window->RecList.Selected(), 0);
    files::WriteWhole(host.WorkingFolder() + "1001241a.jpg", "another listing's");
    window->RecList.PressKey({Key::Delete});  // unchanged: no question
    EXPECT_EQ(window->RecList.Count(), 0);
    EXPECT_EQ(WorkingFiles(), std::set<std::string>{"1001241a.jpg"});
    for (const char* tool : {"Open", "SendPhotos", "DeletePhoto", "View", "Copy", "RemoveEntry"})
        EXPECT_FALSE(window->Menu.IsEnabled(tool)) << tool;
    EXPECT_FALSE(window->cmdRemove.Enabled() || window->cmdSend.Enabled() || window->imgMain.AcceptsFiles());
}

TEST_F(frmLumarinTest, Unload_MovedAndImported_WritesOnlyWhatChanged) {
    OpenWith({});
    window->Unload();
    EXPECT_FALSE(files::FileExists(host.UserFolder() + "User.ini"));
    OpenWith({"100124"});
    desktop.Choose("/in/a.png");
    WillCapture({300});
    window->Menu.ClickTool("Open");
    window->MoveTo(2415.5, 1830);
    window->Unload();
    EXPECT_EQ(files::ReadAll(host.UserFolder() + "User.ini"),
              "[Photos]\r\nDefault Import Dir=/in/\r\nStart Up Position=2415.5,1830\r\n");
}

TEST_F(frmLumarinTest, StartUpPosition_OnlyTheFarEdges_PullTheWindowBack) {
    const struct {
        const char* position;
        double left, top;
    } cases[] = {
        {"99999,99999", 2700, 4560},
        {"-500,-500", -500, -500},
        {"2415.5,1830", 2415.5, 1830},
        {"here", 1, 100},
        {"7", 1, 100},
    };
    for (const auto& [position, left, top] : cases) {
        files::WriteWhole(host.UserFolder() + "User.ini",
                          std::string("[Photos]\nStart Up Position=") + position);
        Open();
        EXPECT_EQ(window->Bounds(), (Rect{left, top, 16500, 10800})) << position;
    }
}

TEST_F(frmLumarinTest, SettingsOfTheInstallation_AreFollowedAndKept) {
    files::WriteWhole(host.CityFolder() + "CityInfo.ini", "[Lumarin]\nSortNames=1\nPhoto Maximum=99\n");
    OpenWith({"100150", "100109", "100120"});
    EXPECT_EQ(ListTexts(window->RecList), (Texts{"100109", "100120", "100150"}));  // by house number
    EXPECT_EQ(window->lblPhotos.Caption(), "Listing 100120: 0 of 26 photos");
    window->RecList.ClickColumn(0);
    window->RecList.ClickColumn(0);
    EXPECT_EQ(ListTexts(window->RecList), (Texts{"100150", "100120", "100109"}));
    window->Menu.ClickTool("FilePreview");
    settings::WriteText(host.CityFolder() + "CityInfo.ini", "Lumarin", "Photo Maximum", "-1");
    Open();
    EXPECT_FALSE(window->Menu.IsChecked("FilePreview"));
    EXPECT_TRUE(window->lblPhotos.Caption().ends_with("0 of 0 photos")) << window->lblPhotos.Caption();
}

TEST_F(frmLumarinTest, Browse_ChosenListings_AreEnteredAsIfTyped) {
    GivenListing(100124);
    GivenListing(100125);
    Open();
    desktop.Play("frmFindProperty", [](frmFindProperty& search) {
        for (const char* number : {"100124", "100125"}) search.List.AddRow({.text = number, .key = number});
        search.List.SelectRows({0, 1});
        search.cmdOK.Press();
    });
    window->cmdBrowse.Press();
    EXPECT_EQ(ListTexts(window->RecList), (Texts{"100124", "100125"}));
    EXPECT_NE(host.queries.at(0).find("(LstStatus = '2001' And ListAgentID = 'A101')"), std::string::npos)
        << host.queries[0];
}

TEST_F(frmLumarinTest, MenusViewerHelpAndExit_DoTheirWork) {
    GivenListing(100123, {100, 200});
    imaging.pictures[host.WorkingFolder() + "100123b.jpg"] = {480, 300, true};
    OpenWith({"100123"});
    window->PhotoList.Select(1);
    window->PhotoList.MouseWentUp({MouseButton::Right, 0, 0});
    window->RecList.MouseWentUp({MouseButton::Right, 0, 0});
    EXPECT_EQ(desktop.poppedUp, (Texts{"PhotoPopup", "ListingPopup"}));
    window->Menu.ClickTool("View_2112");
    EXPECT_EQ(ListTexts(window->PhotoList), (Texts{"Front", "Kitchen"}));
    window->imgMain.MouseWentUp({MouseButton::Left, 10, 10});
    ASSERT_TRUE(desktop.shown.contains("frmPhotoViewer"));
    EXPECT_EQ(desktop.shown["frmPhotoViewer"]->Caption(), "Kitchen - 100123");
    window->Menu.ClickTool("miHelp");
    EXPECT_EQ(desktop.helpPages.at(0), std::make_pair(host.HelpFilePath(), window->HelpContext()));
    window->Menu.ClickTool("Exit");
    window->Unload(CloseReason::Frame);
    EXPECT_EQ(host.endedJobs, (std::vector<int>{7, 7}));
}

}  // namespace
}  // namespace lumarin
