#include "photo_window/frmLumarin.h"

#include <filesystem>

#include "entry/Settings.h"
#include "lookup/frmFindProperty.h"
#include "photo_window/frmImport.h"
#include "support/PhotoWindowTest.h"
#include "support/Reason.h"

namespace lumarin {

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
    Enter(" 100123\t");
    EXPECT_EQ(window->RecList.Selected(), 0);
    desktop.Expect("No listings Found for Elm");
    EXPECT_EQ(window->LookUpListing("999", "Elm"), LookupResult::NotFound);
}

TEST_F(frmLumarinTest, Open_SeveralFiles_AbortEndsAndCancelSkips) {
    OpenWith({"100124"});
    desktop.Choose(Files("/in|a.png|b.png|a.png|b.png"));
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

TEST_F(frmLumarinTest, Import_Cancelled_KeepsWhatCameBefore) {
    OpenWith({"100124"});
    WillCapture({300, 400});
    const auto progress = [&]() -> frmImport& {
        return static_cast<frmImport&>(*desktop.shown["frmImport"]);
    };
    desktop.AtPendingEvents(3, [&] {
        EXPECT_EQ(progress().lblPicture.Caption() + progress().lblFile.Caption(), "Picture 3 of 4a.png");
        EXPECT_FALSE(window->Enabled());
        progress().cmdCancel.Press();
    });
    window->PhotoList.DropFiles(Files("/in|a.png|b.png|a.png|b.png"));
    EXPECT_EQ(window->PhotoList.Count(), 2);
    EXPECT_EQ(window->lblSent.Caption(), "Import cancelled: 2 of 4 pictures imported");
    EXPECT_TRUE(window->Enabled() && !desktop.shown.contains("frmImport"));
    desktop.AtPendingEvents(1, [&] { window->Unload(CloseReason::Frame); });
    window->PhotoList.DropFiles(Files("/in|a.png|b.png"));
    EXPECT_TRUE(window->IsLoaded());
}

TEST_F(frmLumarinTest, Import_ThatFails_NoLongerCountsItsPictures) {
    OpenWith({"100124"});
    const std::string inTheWay = files::UnfinishedName(host.WorkingFolder() + "100124.dat");
    files::EnsureFolder(inTheWay);  // the state cannot be written
    std::string count = "not opened";
    desktop.BeLenient([&](Form& form) {
        count = static_cast<frmPhotoCrop&>(form).lblPicture.Caption();
        form.Hide();
    });
    desktop.Choose(Files("/in|a.png|b.png"));
    window->Menu.ClickTool("Open");
    EXPECT_EQ(count, "not opened");
    files::TryDelete(inTheWay);
    desktop.SetClipboardPicture({480, 300, std::vector<std::uint8_t>(480 * 300 * 3)});
    window->Menu.ClickTool("Paste");
    EXPECT_EQ(count, "");
}

TEST_F(frmLumarinTest, SmartLoad_FileNames_ChooseTheListing) {
    const char* taken[] = {"1234.jpg", "12345-front.jpg", "123456a"};
    std::string selection =
        "/12345|123.jpg|1234567a.jpg|123456|a12345.jpg|99999x.jpg|99999y.jpg|55555bad.jpg|44444x.jpg";
    for (const std::string name : taken) {
        selection += "|" + name;
        imaging.pictures["/12345/" + name] = {800, 500, false};
        GivenListing(std::stoi(name));
    }
    GivenListing(55555);
    GivenListing(44444, std::vector<std::size_t>(27, 1));
    Open();
    WillCapture({300, 400, 500});
    desktop.Choose(Files(selection));
    desktop.Expect("99999 Is not a valid listing number");
    desktop.Expect(
        "Not imported:\n\nThe name does not start with a listing number (4 to 6 digits, and something behind "
        "them).\n123.jpg\n1234567a.jpg\n123456\na12345.jpg\n\nListing 99999 was not found.\n99999x.jpg\n"
        "99999y.jpg\n\nThe selected file is not a valid photo.\n55555bad.jpg\n\n"
        "Subscript out of range: 27, the database's PhotoCount of listing 44444, which can have 0 to 26 "
        "photos\n44444x.jpg",
        "frmLumarin-SmartLoad");
    window->Menu.ClickTool("SmartLoad");
    EXPECT_EQ(ListTexts(window->RecList), (Texts{"55555", "1234", "12345", "123456"}));
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
        "What was dropped holds no picture, only an address or a text. Save the picture as a file first, "
        "then drop or open that file.");
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
    const PicturePtr copied = desktop.clipboard;
    for (const Answer answer : {Answer::Cancel, Answer::Yes, Answer::No}) {
        desktop.Expect(
            "You have placed a large amount of data in the clipboard. This data may take up quite a bit of "
            "memory and could degrade system performance if left on the clipboard. Would you like to leave "
            "this data on the clipboard so that it will be available to other applications?",
            answer, "Data in the clipboard");
        window->Unload();
        EXPECT_EQ(desktop.clipboard, answer == Answer::No ? nullptr : copied);
        window->Load();
    }
}

TEST_F(frmLumarinTest, PhotoList_KeysAndDragsOverSeveralPhotos_MoveThemInTheViewThatIsRemembered) {
    GivenListing(100123, {1, 2, 3, 4});
    OpenWith({"100123"});
    ListView& photos = window->PhotoList;
    const auto order = [&] {
        std::string lengths;
        for (int row = 0; row < photos.Count(); ++row)
            lengths += std::to_string(files::FileLength(photos.At(row).picture));
        return lengths;
    };
    const struct {
        std::vector<int> selected;
        KeyDown key;  ///< none: they are dragged to the end
        std::string order;
        bool up, down;  ///< which way they can still be moved
    } cases[] = {
        {{0}, {.key = Key::Down, .alt = true}, "2134", true, true},
        {{1, 2}, {.key = Key::Left, .control = true}, "1324", false, true},
        {{0, 2}, {.key = Key::Right, .alt = true}, "3142", true, true},
        {{0, 2}, {}, "1234", true, false},
        {{0, 1}, {.key = Key::Up, .control = true}, "1234", false, true},
    };
    for (const auto& c : cases) {
        photos.SelectRows(c.selected);
        if (c.key.key == Key::None)
            photos.DragSelected(photos.Count());
        else
            EXPECT_TRUE(photos.PressKey(c.key));
        EXPECT_EQ(order(), c.order);
        EXPECT_EQ(photos.SelectedRows().size(), c.selected.size()) << "they stay selected";
        EXPECT_EQ(std::pair(window->cmdMove(0).Enabled(), window->cmdMove(1).Enabled()),
                  std::pair(c.up, c.down));
    }
    EXPECT_EQ(window->lblPhotos.Caption(), "Listing 100123: 4 of 4 photos, 2 selected");
    window->cmbPhotoView.SetListIndex(3);
    EXPECT_FALSE(photos.PressKey({.key = Key::Left, .control = true})) << "rows have no left and right";
    photos.PressKey({Key::Delete});
    EXPECT_EQ(order(), "34");
    Open();
    EXPECT_EQ(window->cmbPhotoView.Text(), "List");
    EXPECT_EQ(window->PhotoList.ArrangedAs(), ListView::Arrangement::Rows);
}

TEST_F(frmLumarinTest, RemoveListing_Undone_ComesBackAsItWasInThisRunAndTheNext) {
    GivenListing(100123, {100, 200});
    OpenWith({"100124", "100123"});
    window->PhotoList.PressKey({Key::Delete});
    files::WriteWhole(host.WorkingFolder() + "1001241a.jpg", "another listing's");
    for (const bool restarts : {false, true}) {
        window->cmdRemove.Press();
        window->RecList.PressKey({Key::Delete});
        EXPECT_EQ(WorkingFiles(), std::set<std::string>{"1001241a.jpg"});
        for (const char* tool : {"Open", "SendPhotos", "DeletePhoto", "View", "Copy", "RemoveEntry", "Redo"})
            EXPECT_FALSE(window->Menu.IsEnabled(tool)) << tool;
        EXPECT_FALSE(window->cmdRemove.Enabled() || window->cmdSend.Enabled() ||
                     window->imgMain.AcceptsFiles());
        for (const char* undone : {"Undo: Remove listing 100124", "Undo: Remove listing 100123"}) {
            if (restarts) Open();
            EXPECT_EQ(window->Menu.At("Undo").description, undone);
            window->Menu.ClickTool("Undo");
        }
        EXPECT_EQ(window->RecList.At(window->RecList.Selected()).text, "100123");
        EXPECT_EQ(window->lblPhotos.Caption(), "Listing 100123: 1 of 4 photos");
        EXPECT_EQ(window->Menu.At("Undo").caption, "&Undo: Delete photo A");
        EXPECT_EQ(window->Menu.At("Redo").caption, "&Redo: Remove listing 100123");
    }
    window->Menu.ClickTool("Redo");
    Enter("100123");  // loaded anew: what was removed cannot come back any more
    EXPECT_FALSE(window->Menu.IsEnabled("Undo"));
    EXPECT_EQ(window->PhotoList.Count(), 2);
}

TEST_F(frmLumarinTest, SwitchListings_TheCurrentOneCannotBeSaved_StaysCurrentAndHighlighted) {
    GivenListing(100123, {100, 200});
    OpenWith({"100124", "100123"});
    const std::string state = host.WorkingFolder() + "100123.dat", inTheWay = files::UnfinishedName(state);
    files::EnsureFolder(inTheWay + "/x");
    desktop.Expect(testing::ReasonOf([&] { files::WriteWhole(state, ""); }));
    window->RecList.Select(0);
    EXPECT_EQ(window->RecList.Selected(), 1);
    EXPECT_EQ(window->lblPhotos.Caption(), "Listing 100123: 2 of 4 photos");
    std::filesystem::remove_all(inTheWay);
    window->RecList.Select(0);
    EXPECT_EQ(window->lblPhotos.Caption(), "Listing 100124: 0 of 4 photos");
}

TEST_F(frmLumarinTest, WorkingFolder_FilesOfOthers_StayOrAreSetAside) {
    const std::set<std::string> foreign = {"notes.zip",   "x.part",     "VEL42A102.zip", "100124 front.jpg",
                                           "100124A.jpg", "100124.txt", "photo.jpg"};
    files::EnsureFolder(host.WorkingFolder());
    for (const std::string& name : foreign) files::WriteWhole(host.WorkingFolder() + name, name);
    for (const char* own : {"VEL42A101.zip", "VEL42A101.zip.part.x7Yz", "100124a.jpg.part"})
        files::WriteWhole(host.WorkingFolder() + own, "");
    files::WriteWhole(host.WorkingFolder() + "foo.dat", "foo");
    GivenListing(100124, {100});
    desktop.Expect("The work on some listings could not be taken up. Its files were left in the folder " +
                       host.WorkingFolder() + "\n\nfoo.dat\n\"foo\" is not a listing number" + AskToSetAside,
                   Answer::Yes);
    Open();
    EXPECT_EQ(WorkingFiles(), foreign);
    OpenWith({"100124"});  // no message this time
    std::set<std::string> loaded = foreign;
    loaded.erase("100124A.jpg");  // for some file systems that is 100124a.jpg
    loaded.insert({"100124.dat", "100124.jnl", "100124a.jpg"});
    EXPECT_EQ(WorkingFiles(), loaded);
    window->cmdRemove.Press();
    const std::set<std::string> left = {"notes.zip", "x.part", "VEL42A102.zip", "photo.jpg"};
    EXPECT_EQ(WorkingFiles(), left);
    Enter("100124");
    window->cmdSend.Press();
    EXPECT_TRUE(WorkingFiles().empty());
    for (const std::string& name : foreign)
        EXPECT_EQ(files::ReadAll(host.WorkingFolder() + "Set aside/" + name), name);
    EXPECT_TRUE(files::FileExists(host.WorkingFolder() + "Set aside/foo.dat"));
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
    const std::tuple<const char*, double, double> cases[] = {
        {"99999,99999", 2700, 4560},
        {"-500,-500", -500, -500},
        {"2415.5,1830", 2415.5, 1830},
        {"here", 1, 100},
        {"7", 1, 100},
    };
    for (const auto& [position, left, top] : cases) {
        const std::string stored = std::string("[Photos]\nStart Up Position=") + position;
        files::WriteWhole(host.UserFolder() + "User.ini", stored);
        Open();
        EXPECT_EQ(window->Bounds(), (Rect{left, top, 16500, 10800})) << position;
        window->Unload();
        EXPECT_EQ(files::ReadAll(host.UserFolder() + "User.ini"), stored);
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
    GivenListing(100123, std::vector<std::size_t>(27, 1));
    Open();
    desktop.Play("frmFindProperty", [](frmFindProperty& search) {
        for (const char* number : {"100123", "100124", "100125"})
            search.List.AddRow({.text = number, .key = number});
        search.List.SelectRows({0, 1, 2});
        search.cmdOK.Press();
    });
    desktop.Expect(
        "Not all listings could be opened:\nSubscript out of range: 27, the database's PhotoCount of listing "
        "100123, which can have 0 to 26 photos");
    window->cmdBrowse.Press();
    EXPECT_EQ(ListTexts(window->RecList), (Texts{"100124", "100125"}));
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
    window->Menu.OpenGroup("View");
    EXPECT_TRUE(window->Menu.IsChecked("View_2112") && !window->Menu.IsChecked("View_2110"));
    EXPECT_TRUE(window->RecList.At(0).strong);
    EXPECT_EQ(window->RecList.At(0).toolTip, "2 photos, 1 change not sent");
    EXPECT_EQ(window->lblUnsent.Caption(), "1 listing, 1 with changes not sent");
    window->imgMain.MouseWentUp({MouseButton::Right, 10, 10});
    ASSERT_TRUE(desktop.shown.contains("frmPhotoViewer"));
    auto& viewer = static_cast<frmPhotoViewer&>(*desktop.shown["frmPhotoViewer"]);
    EXPECT_EQ(viewer.Caption(), "Kitchen - 100123");
    EXPECT_EQ(viewer.lblPhoto.Caption(), "2 of 2   Kitchen");
    imaging.openFailure = ImagingError(InvalidPictureError, "broken");
    viewer.fraStage.PressKey({Key::Left});
    EXPECT_EQ(viewer.lblPhoto.Caption(), "1 of 2   Front   cannot be shown");
    EXPECT_EQ(window->PhotoList.Selected(), 0);
    for (int photo = 0; photo < 2; ++photo) window->PhotoList.PressKey({Key::Delete});
    EXPECT_FALSE(desktop.shown.contains("frmPhotoViewer"));
    window->Menu.ClickTool("miHelp");
    EXPECT_EQ(desktop.helpPages.at(0), std::make_pair(host.HelpFilePath(), window->HelpContext()));
    window->Menu.ClickTool("Exit");
    window->Unload(CloseReason::Frame);
    EXPECT_EQ(host.endedJobs, (std::vector<int>{7, 7}));
}

}  // namespace lumarin
