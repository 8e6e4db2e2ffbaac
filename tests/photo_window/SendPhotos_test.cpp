#include "PhotoWindowTest.h"
#include "base/Files.h"
#include "listing/StateFile.h"
#include "util/frmProgress.h"

namespace lumarin {
namespace {

using Texts = std::vector<std::string>;
const std::string Retry = "Unavailable to connect to server, do you want to retry";

class SendPhotosTest : public testing::PhotoWindowTest {
protected:
    /// Listing 100123 with its published photo of 100 bytes and a new one of 300.
    void GivenUnsentPhoto() {
        GivenListing(100123, {100});
        Open();
        Enter("100123");
        WillCapture({300});
        desktop.Choose("/in/a.png");
        window->Menu.ClickTool("Open");
    }
    /// Everything that a failed send must leave as it was.
    std::map<std::string, std::string> Snapshot() {
        std::map<std::string, std::string> all;
        for (const std::string& name : WorkingFiles())
            if (name != "100123.jnl") all[name] = files::ReadAll(host.WorkingFolder() + name);
        const std::string path = host.WorkingFolder() + "100123.dat";
        if (files::FileExists(path))
            all["100123.dat"] = state_file::Encode(photo_journal::Recover(host.WorkingFolder(), 100123));
        all["list"] =
            std::to_string(window->RecList.Count()) + "/" + std::to_string(window->PhotoList.Count());
        return all;
    }
};

TEST_F(SendPhotosTest, Send_ChangedPhotos_GoesInOnePackageAndEmptiesTheWindow) {
    GivenUnsentPhoto();
    host.reportsUpdates = true;
    archiver.length = 5121;
    window->cmdSend.Press();
    EXPECT_EQ(host.queries.back(), "SELECT PhoListNum,PhotoVersion FROM Photo WHERE PhoListNum IN (100123);");
    EXPECT_EQ(archiver.packaged, (Texts{"100123.dat", "100123b.jpg"}));
    EXPECT_EQ(host.uploads,
              (Texts{"begin VEL42A101.zip", "chunk 5120", "chunk 1", "end", "apply VEL42A101.zip"}));
    const ListingState manifest = state_file::Decode(archiver.contents["100123.dat"]);
    EXPECT_EQ(manifest.PhotoCount, 2);
    EXPECT_EQ(manifest.Photos[0].SentLetter, "a");
    EXPECT_EQ(manifest.Photos[1].SentLetter, "");
    EXPECT_TRUE(WorkingFiles().empty());
    EXPECT_EQ(files::FileLength(host.ListingPhotoFolder(100123) + "100123b.jpg"), 300U);
    EXPECT_EQ(host.progCalls, (std::vector<std::pair<int, int>>{{0, 9}}));
    EXPECT_EQ(window->RecList.Count() + window->PhotoList.Count(), 0);
    for (const char* tool : {"Paste", "Open", "SendPhotos", "Copy", "DeletePhoto", "View"})
        EXPECT_FALSE(window->Menu.IsEnabled(tool)) << tool;
    EXPECT_TRUE(window->Enabled());
    EXPECT_EQ(desktop.pointer, Pointer::Default);
}

TEST_F(SendPhotosTest, Send_ExactlyOneChunk_IsNotFollowedByAnEmptyOne) {
    GivenUnsentPhoto();
    archiver.length = 5120;
    window->cmdSend.Press();
    EXPECT_EQ(std::count(host.uploads.begin(), host.uploads.end(), "chunk 5120"), 1);
    EXPECT_EQ(host.uploads.size(), 4U);
}

TEST_F(SendPhotosTest, Send_AnyServerStepFails_LosesNothingAndRetryRepeats) {
    for (const std::string failing : {"begin", "chunk", "end", "apply"}) {
        GivenUnsentPhoto();
        const auto before = Snapshot();
        int failures = 2;
        host.onUpload = [&](const std::string& step) {
            if (step.rfind(failing, 0) == 0 && failures-- > 0) throw Error(1, "net", "gone");
        };
        desktop.Expect(Retry, Answer::Yes);
        desktop.Expect(Retry, Answer::No);
        window->cmdSend.Press();
        EXPECT_EQ(Snapshot(), before) << failing;
        EXPECT_TRUE(window->Enabled()) << failing;
        EXPECT_EQ(desktop.shown.count("frmProgress"), 0U) << failing;
        window->cmdSend.Press();  // now it goes through
        EXPECT_TRUE(WorkingFiles().empty()) << failing;
        host.onUpload = [](const std::string&) {};
    }
}

TEST_F(SendPhotosTest, Send_QueryFails_OffersRetry) {
    GivenUnsentPhoto();
    const auto before = Snapshot();
    const auto answer = host.onQuery;
    host.onQuery = [](const std::string&) -> testing::FakeTable { throw Error(1, "db", "gone"); };
    desktop.Expect(Retry, Answer::No);
    window->cmdSend.Press();
    EXPECT_EQ(Snapshot(), before);
    EXPECT_TRUE(host.uploads.empty());
    host.onQuery = answer;
}

TEST_F(SendPhotosTest, Send_Refused_SaysSoAndKeepsEverything) {
    GivenUnsentPhoto();
    const auto before = Snapshot();
    host.batchResult = 1;
    desktop.Expect("Unable to update photo on server, please call Tech support.");
    window->cmdSend.Press();
    EXPECT_EQ(desktop.messages.back().title, "Unable to update");
    EXPECT_EQ(Snapshot(), before);
}

TEST_F(SendPhotosTest, Send_CancelledInTheProgressWindow_AbortsAndKeepsEverything) {
    GivenUnsentPhoto();
    const auto before = Snapshot();
    archiver.length = 5120 * 4;
    int chunks = 0;
    host.onUpload = [&](const std::string& step) {
        if (step.rfind("chunk", 0) == 0 && ++chunks == 2)
            static_cast<frmProgress*>(desktop.shown["frmProgress"])->cmdCancel.Press();
    };
    window->cmdSend.Press();
    EXPECT_EQ(host.uploads, (Texts{"begin VEL42A101.zip", "chunk 5120", "chunk 5120", "end", "abort"}));
    EXPECT_EQ(Snapshot(), before);
}

TEST_F(SendPhotosTest, Send_HostEndsTheJobMeanwhile_StopsThenUnloads) {
    GivenUnsentPhoto();
    archiver.length = 5120 * 4;
    host.onUpload = [&](const std::string& step) {
        if (step == "begin VEL42A101.zip") {
            EXPECT_FALSE(window->Unload(CloseReason::Host));
        }
    };
    window->cmdSend.Press();
    EXPECT_EQ(host.uploads.back(), "abort");
    EXPECT_FALSE(window->IsLoaded());
    EXPECT_EQ(WorkingFiles().count("100123b.jpg"), 1U);
}

TEST_F(SendPhotosTest, Send_PackageCannotBeMade_ReportsAndKeepsEverything) {
    GivenUnsentPhoto();
    const auto before = Snapshot();
    archiver.failure = Error(ApplicationErrorNumber, "zip", "No space left on device");
    desktop.Expect("No space left on device");
    window->cmdSend.Press();
    EXPECT_EQ(desktop.messages.back().title, "frmLumarin-SendPhotos");
    EXPECT_EQ(Snapshot(), before);
    EXPECT_TRUE(host.uploads.empty());
}

TEST_F(SendPhotosTest, Send_ListingsWithoutPhotos_AreAskedForOnce) {
    GivenListing(100123);
    GivenListing(100124);
    Open();
    Enter("100123");
    Enter("100124");
    desktop.Expect("Do you really want to remove all the photos from listing - 100123", Answer::No);
    desktop.Expect("Do you really want to remove all the photos from listing - 100124", Answer::Yes);
    int failures = 1;
    host.onUpload = [&](const std::string&) {
        if (failures-- > 0) throw Error(1, "net", "gone");
    };
    desktop.Expect(Retry, Answer::Yes);
    window->cmdSend.Press();
    EXPECT_EQ(archiver.packaged, Texts{"100124.dat"});
    EXPECT_EQ(desktop.messages[0].buttons, Buttons::YesNo);
    EXPECT_EQ(desktop.messages[0].icon, Icon::Exclamation);
}

TEST_F(SendPhotosTest, Send_AllRemovalsDeclined_SendsNothingAndEmptiesTheWindow) {
    GivenListing(100124);
    Open();
    Enter("100124");
    desktop.Expect("Do you really want to remove all the photos from listing - 100124", Answer::No);
    window->cmdSend.Press();
    EXPECT_TRUE(host.uploads.empty());
    EXPECT_EQ(window->RecList.Count(), 0);
    EXPECT_TRUE(WorkingFiles().empty());
}

TEST_F(SendPhotosTest, Send_UnreadableWorkInTheFolder_IsSpared) {
    GivenListing(100124);
    files::EnsureFolder(host.WorkingFolder());
    files::WriteWhole(host.WorkingFolder() + "100200.dat", "garbage");
    files::WriteWhole(host.WorkingFolder() + "100200a.jpg", "precious");
    desktop.Expect("The work on some listings could not be taken up. Its files were left in the folder " +
                   host.WorkingFolder() +
                   "\n\n100200.dat\nThe saved state of a listing cannot be read: it is cut short at byte 7");
    Open();
    Enter("100124");
    desktop.Expect("Do you really want to remove all the photos from listing - 100124", Answer::No);
    window->cmdSend.Press();
    EXPECT_EQ(WorkingFiles(), (std::set<std::string>{"100200.dat", "100200a.jpg"}));
}

}  // namespace
}  // namespace lumarin
