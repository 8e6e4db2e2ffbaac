#include "listing/StateFile.h"
#include "support/PhotoWindowTest.h"
#include "util/frmProgress.h"

namespace lumarin {

const std::string Retry = "Unavailable to connect to server, do you want to retry";
const std::string RemoveAll = "Do you really want to remove all the photos from listing - ";

class SendPhotosTest : public testing::PhotoWindowTest {
protected:
    /// Listing 100123 with its published photo of 100 bytes and a new one of 300.
    void GivenUnsentPhoto() {
        GivenListing(100123, {100});
        OpenWith({"100123"});
        WillCapture({300});
        window->PhotoList.DropFiles({"/in/a.png"});
    }
    void SendAndExpectAllKept(const std::string& line) {
        const auto saved = [&] { return photo_journal::Recover(host.WorkingFolder(), 100123).state; };
        const ListingState before = saved();
        window->cmdSend.Press();
        EXPECT_EQ(saved(), before);
        EXPECT_EQ(WorkingFiles(),
                  (std::set<std::string>{"100123.dat", "100123.jnl", "100123a.jpg", "100123b.jpg"}));
        EXPECT_EQ(window->PhotoList.Count(), 2);
        EXPECT_EQ(window->lblSent.Caption(), line);
        EXPECT_TRUE(window->Enabled());
        EXPECT_FALSE(desktop.shown.contains("frmProgress"));
    }
};

TEST_F(SendPhotosTest, Send_AfterUndo_SendsWhatTheWindowShowsAndEndsAllSteps) {
    GivenUnsentPhoto();
    OpenWith({"100124"});
    window->cmdRemove.Press();
    window->PhotoList.Select(0);
    window->Menu.ClickTool("DeletePhoto");
    for (int step = 0; step < 2; ++step) window->Menu.ClickTool("Undo");  // the second brings 100124 back
    window->RecList.Select(0);
    window->Menu.ClickTool("Undo");
    EXPECT_EQ(ListTexts(window->RecList), (Texts{"100123", "100124"}));
    desktop.Expect(RemoveAll + "100124", Answer::No);
    window->cmdSend.Press();
    EXPECT_EQ(archiver.packaged, Texts{"100123.dat"}) << "its photo is unchanged again";
    EXPECT_FALSE(window->Menu.IsEnabled("Undo"));
    EXPECT_FALSE(files::FolderExists(host.WorkingFolder() + "Undo"));
}

TEST_F(SendPhotosTest, Send_ChangedPhotos_GoesInOnePackageAndEmptiesTheWindow) {
    GivenUnsentPhoto();
    const std::string published = host.ListingPhotoFolder(100123);
    for (const char* name : {"100123z.jpg", "1001231a.jpg"})  // an old one, and another listing's
        files::WriteWhole(published + name, "x");
    host.reportsUpdates = true;
    archiver.length = 5121;
    window->Menu.ClickTool("View_2112");
    window->PhotoList.PressKey({.key = Key::Up, .control = true});  // the new photo is the first now
    window->cmdSend.Press();
    EXPECT_EQ(host.queries.back(), "SELECT PhoListNum,PhotoVersion FROM Photo WHERE PhoListNum IN (100123);");
    EXPECT_EQ(archiver.packaged, (Texts{"100123.dat", "100123a.jpg"}));
    EXPECT_EQ(host.uploads,
              (Texts{"begin VEL42A101.zip", "chunk 5120", "chunk 1", "end", "apply VEL42A101.zip"}));
    const ListingState manifest = state_file::Decode(archiver.contents["100123.dat"]);
    EXPECT_EQ(manifest.PhotoCount, 2);
    EXPECT_EQ(manifest.Photos[0], (PhotoEntry{"2112", "", ""}));
    EXPECT_EQ(manifest.Photos[1], (PhotoEntry{"2110", "", "a"}));
    EXPECT_EQ(manifest.StreetName, "");
    EXPECT_TRUE(WorkingFiles().empty());
    EXPECT_EQ(files::FileLength(published + "100123a.jpg"), 300U);
    EXPECT_FALSE(files::FileExists(published + "100123z.jpg"));
    EXPECT_TRUE(files::FileExists(published + "1001231a.jpg"));
    EXPECT_EQ(host.progCalls, (std::vector<std::pair<int, int>>{{0, 9}}));
    EXPECT_EQ(window->RecList.Count() + window->PhotoList.Count(), 0);
    EXPECT_EQ(window->lblSent.Caption(), "1 listing, 1 photo sent");
    EXPECT_FALSE(window->Menu.IsEnabled("SendPhotos"));
    EXPECT_TRUE(window->Enabled());
    EXPECT_EQ(desktop.pointer, Pointer::Default);
}

TEST_F(SendPhotosTest, Send_RefusedOrCancelled_KeepsEverything) {
    GivenUnsentPhoto();
    host.batchResult = 1;
    desktop.Expect("Unable to update photo on server, please call Tech support.", "Unable to update");
    SendAndExpectAllKept("1 listing, 1 photo not sent: the server has refused the update");
    host.uploads.clear();
    archiver.length = std::size_t{5120} * 4;
    host.onUpload = [&](const std::string&) {
        if (host.uploads.size() == 3)
            static_cast<frmProgress*>(desktop.shown["frmProgress"])->cmdCancel.Press();
    };
    SendAndExpectAllKept("1 listing, 1 photo not sent: cancelled");
    EXPECT_EQ(host.uploads, (Texts{"begin VEL42A101.zip", "chunk 5120", "chunk 5120", "end", "abort"}));
    host.uploads.clear();
    host.onUpload = [&](const std::string& step) {
        if (!step.starts_with("chunk")) return;
        // Pressed while the server does not answer: nobody who has cancelled is asked about a retry.
        desktop.AtPendingEvents(
            1, [&] { static_cast<frmProgress*>(desktop.shown["frmProgress"])->cmdCancel.Press(); });
        throw Error(1, "net", "gone");
    };
    SendAndExpectAllKept("1 listing, 1 photo not sent: cancelled");
    EXPECT_EQ(host.uploads, (Texts{"begin VEL42A101.zip", "chunk 5120", "abort"}));
}

TEST_F(SendPhotosTest, Send_APhotoFileIsMissing_NamesTheListing) {
    GivenUnsentPhoto();
    const std::string photo = host.WorkingFolder() + "100123b.jpg";
    files::Delete(photo);
    desktop.Expect("Photo 2 of listing 100123 cannot be sent. Cannot read the length of \"" + photo +
                   "\": No such file or directory");
    window->cmdSend.Press();
    EXPECT_EQ(window->PhotoList.Count(), 2);
}

TEST_F(SendPhotosTest, Send_HostEndsTheJobMeanwhile_StopsThenUnloads) {
    GivenUnsentPhoto();
    host.onUpload = [&](const std::string& step) {
        if (step == "begin VEL42A101.zip") {
            EXPECT_FALSE(window->Unload(CloseReason::Host));
        }
    };
    window->cmdSend.Press();
    EXPECT_EQ(host.uploads.back(), "abort");
    EXPECT_FALSE(window->IsLoaded());
    EXPECT_TRUE(WorkingFiles().contains("100123b.jpg"));
}

TEST_F(SendPhotosTest, Send_ListingsWithoutPhotos_AreAskedForOnceAndUnreadableWorkIsSpared) {
    GivenUnreadableWork("100200");
    OpenWith({"100123", "100124"});
    archiver.length = 5120;
    desktop.Expect(RemoveAll + "100123", Answer::No);
    desktop.Expect(RemoveAll + "100124", Answer::Yes);
    host.onUpload = [&](const std::string&) {
        if (host.uploads.size() == 1) throw Error(1, "net", "gone");
    };
    desktop.Expect(Retry, Answer::Yes);
    window->cmdSend.Press();
    EXPECT_EQ(archiver.packaged, Texts{"100124.dat"});
    const std::string begin = "begin VEL42A101.zip";
    EXPECT_EQ(host.uploads, (Texts{begin, "abort", begin, "chunk 5120", "end", "apply VEL42A101.zip"}))
        << "no empty chunk behind the last, and nothing left of a begin whose answer was lost";
    EXPECT_EQ(window->lblSent.Caption(), "1 listing, 0 photos sent");
    EXPECT_EQ(desktop.messages.at(1).buttons, Buttons::YesNo);
    EXPECT_EQ(WorkingFiles(), (std::set<std::string>{"100200.dat", "100200a.jpg"}));
}

TEST_F(SendPhotosTest, Send_AllRemovalsDeclined_SendsNothingAndEmptiesTheWindowWhateverFails) {
    OpenWith({"100124"});
    host.reportsUpdates = true;
    host.onProg = [] { throw Error(1, "host", "no list"); };
    desktop.Expect(RemoveAll + "100124", Answer::No);
    desktop.Expect("The sending is finished, but not all that follows it could be done:\nno list");
    window->cmdSend.Press();
    EXPECT_TRUE(host.uploads.empty() && WorkingFiles().empty());
    EXPECT_EQ(window->lblSent.Caption(), "Nothing was sent");
    EXPECT_EQ(window->RecList.Count(), 0);
}

}  // namespace lumarin
