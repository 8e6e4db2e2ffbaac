#include "listing/clsPMListingRec.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "base/Files.h"
#include "imaging/FakeImaging.h"
#include "listing/ListingFiles.h"
#include "listing/StateFile.h"
#include "support/FakeHost.h"
#include "support/ScriptedDesktop.h"

namespace lumarin {
namespace {

/// The least window that can hold listings.
class OwnerForm : public Form, public ListingOwner {
public:
    OwnerForm(Desktop& desktop, HostLink& link) : Form(desktop, "frmOwner"), host(link) {
        for (const char* tool : {"Paste", "Open", "SendPhotos", "Copy", "View", "DeletePhoto"})
            menu.AddTool({.name = tool, .enabled = false});
    }
    ListView listings{*this, "listings"}, photos{*this, "photos"};
    PictureBox preview{*this, "preview"};
    Button up{*this, "up"}, down{*this, "down"}, send{*this, "send"};
    ToolBar menu{*this, "menu"};
    HostLink& host;
    int maximum = 4;

    ListView& Listings() override { return listings; }
    ListView& Photos() override { return photos; }
    PictureBox& PhotoPreview() override { return preview; }
    Button& MoveUpButton() override { return up; }
    Button& MoveDownButton() override { return down; }
    Button& SendButton() override { return send; }
    ToolBar& Tools() override { return menu; }
    int PhotoMaximum() const override { return maximum; }
    void AddStateChanges(bool) override {}
    void PhotoCountChanges() override {}
    PicturePtr LoadPhoto(const std::string&) override { return std::make_shared<Picture>(); }
    Desktop& ScreenDesktop() override { return desktop(); }
    HostLink& Host() override { return host; }
    const Form& Window() const override { return *this; }
};

class ListingTest : public ::testing::Test {
protected:
    ListingTest() {
        link.Set(host);
        files::EnsureFolder(host.WorkingFolder());
        crop.SetPhotoSize("480,300,35,35000,4");
        imaging.pictures["source.png"] = {1600, 1000, false};
    }
    ~ListingTest() override { desktop.VerifyAllUsed(); }

    /// Answers every listing query with this row.
    void GivenRow(FieldValue count, FieldValue version, FieldValue codes, const std::string& agent = "A101") {
        host.onQuery = [=](const std::string&) { return FakeRow(count, version, codes, agent); };
    }
    static testing::FakeTable FakeRow(FieldValue count, FieldValue version, FieldValue codes,
                                      const std::string& agent) {
        return {{"ListNum", "PhotoCount", "PhotoVersion", "PhotoDesc", "StreetNumber", "StreetName",
                 "StreetDirection", "ListOfficeId", "ListAgentId", "RevisionNumber", "BoardId"},
                {{FieldValue(100123), count, version, codes, FieldValue(std::string("12")),
                  FieldValue(std::string("Elm St")), FieldValue(), FieldValue(std::string("OF1")),
                  FieldValue(agent), FieldValue(1), FieldValue(std::string("1"))}}};
    }
    /// A loaded listing with photos of these lengths.
    void GivenListing(const std::vector<std::size_t>& lengths) {
        for (std::size_t i = 0; i < lengths.size(); ++i)
            host.Publish(100123, static_cast<int>(i) + 1, lengths[i]);
        GivenRow(FieldValue(static_cast<std::int64_t>(lengths.size())), FieldValue(), FieldValue());
        ASSERT_EQ(Load(), LoadResult::Loaded);
        record.ShowPhotos();
    }
    LoadResult Load(const std::string& number = "100123") {
        return record.LoadListing(number, host.WorkingFolder(), owner, descriptions, crop);
    }
    PhotoResult Capture(std::size_t length, int view = 0) {
        imaging.captureLengths.push_back(length);
        desktop.Play("frmPhotoCrop", [this, view](Form&) {
            if (view > 0) crop.cmbView.SetListIndex(view);
            crop.cmdCapture.Press();
        });
        return record.AddPhoto("source.png", CropMode::File, false);
    }
    std::vector<std::uint64_t> Lengths() {
        std::vector<std::uint64_t> lengths;
        for (const std::string& name : listing_files::List(host.WorkingFolder(), 100123, ".jpg"))
            lengths.push_back(files::FileLength(host.WorkingFolder() + name));
        return lengths;
    }
    ListingState Recovered() { return photo_journal::Recover(host.WorkingFolder(), 100123); }

    testing::ScriptedDesktop desktop;
    testing::FakeImaging imaging;
    testing::FakeHost host;
    HostLink link;
    OwnerForm owner{desktop, link};
    frmPhotoCrop crop{desktop, imaging};
    DescriptionTable descriptions{host.PhotoDescriptions()};
    clsPMListingRec record;
};

using Lengths_ = std::vector<std::uint64_t>;

TEST_F(ListingTest, Load_Descriptions_FirstEntryOfTheColumnIsNoCode) {
    struct Case {
        const char* name;
        FieldValue count, codes;
        std::vector<std::string> expected;
    };
    const Case cases[] = {
        {"none stored", FieldValue(3), FieldValue(), {"2110", "2110", "2110"}},
        {"stored", FieldValue(2), FieldValue(std::string("X,2111,2112")), {"2111", "2112"}},
        {"too few stored", FieldValue(2), FieldValue(std::string("X,2112")), {"2112", "2110"}},
        {"no photos", FieldValue(), FieldValue(), {}},
    };
    for (int i = 1; i <= 3; ++i) host.Publish(100123, i, static_cast<std::size_t>(i) * 100);
    for (const Case& test : cases) {
        GivenRow(test.count, FieldValue(std::string("100,200")), test.codes);
        ASSERT_EQ(Load(), LoadResult::Loaded) << test.name;
        std::vector<std::string> codes;
        for (int i = 0; i < record.GetPhotoCount(); ++i)
            codes.push_back(record.State().Photos[static_cast<std::size_t>(i)].DescCode);
        EXPECT_EQ(codes, test.expected) << test.name;
        EXPECT_EQ(state_file::Read(host.WorkingFolder() + "100123.dat"), record.State()) << test.name;
    }
    EXPECT_EQ(host.fetched.front(), "100123 1 100,200");
    EXPECT_EQ(owner.listings.At(0).subItems, (std::vector<std::string>{"12", "", "Elm St"}));
}

TEST_F(ListingTest, Load_Access_FollowsTheLevel) {
    struct Case {
        const char* name;
        int level;
        const char *agent, *office, *board, *managed;
        bool several, may;
    };
    const Case cases[] = {
        {"agent, own", 59, "A101", "X", "9", "", false, true},
        {"agent, another's", 59, "A102", "OF1", "1", "", false, false},
        {"office, own", 60, "X", "OF1", "9", "", false, true},
        {"office, managed", 89, "X", "OF2", "9", ",OF2,OF1,", true, true},
        {"office, part of a managed name", 89, "X", "OF2", "9", ",OF2,OF11,", true, false},
        {"office, managed but not several", 60, "X", "OF2", "9", ",OF1,", false, false},
        {"board, own", 90, "X", "X", "1", "", false, true},
        {"board, another", 99, "A101", "OF1", "2", "", false, false},
        {"unrestricted", 100, "X", "X", "9", "", false, true},
    };
    GivenRow(FieldValue(), FieldValue(), FieldValue());
    for (const Case& test : cases) {
        host.level = test.level;
        host.agent = test.agent;
        host.office = test.office;
        host.board = test.board;
        host.managedOffices = test.managed;
        host.severalOffices = test.several;
        EXPECT_EQ(Load() == LoadResult::Loaded, test.may) << test.name;
    }
}

TEST_F(ListingTest, Load_NoListing_AsksForRentalsOnlyWhenTheyAreInUse) {
    EXPECT_EQ(Load(), LoadResult::Failed);
    EXPECT_EQ(host.queries.size(), 1U);
    files::EnsureFolder(host.CityFolder() + "Users/Default/Rental/someone");
    EXPECT_EQ(Load(), LoadResult::Failed);
    ASSERT_EQ(host.queries.size(), 3U);
    EXPECT_EQ(host.queries[2],
              "SELECT "
              "ListNum,PhotoCount,PhotoVersion,PhotoDesc,StreetNumber,StreetName,StreetDirection,"
              "ListOfficeId,ListAgentId,"
              "RevisionNumber,BoardId From Rentals Left join photo on Rentals.ListNum = Photo.PhoListNum "
              "WHERE Rentals.ListNum = 100123;");
    EXPECT_EQ(Load("100123 or 1=1"), LoadResult::Failed);
    EXPECT_EQ(host.queries.size(), 3U);
}

TEST_F(ListingTest, Load_PhotoMissingAtTheHost_FailsAndLeavesNothing) {
    host.Publish(100123, 1, 100);
    GivenRow(FieldValue(2), FieldValue(), FieldValue());
    EXPECT_THROW(Load(), Error);
    EXPECT_TRUE(listing_files::List(host.WorkingFolder(), 100123).empty());
    EXPECT_EQ(owner.listings.Count(), 0);
    host.onQuery = [](const std::string&) -> testing::FakeTable { throw Error(1, "db", "gone"); };
    EXPECT_EQ(Load(), LoadResult::Failed);
}

TEST_F(ListingTest, AddPhoto_Maximum_AsksAndTheButtonDecides) {
    owner.maximum = 2;
    GivenListing({100, 200});
    desktop.Expect("Maximum number of photos exceeded", Answer::Ok);
    EXPECT_EQ(record.AddPhoto("source.png", CropMode::File, false), PhotoResult::Skip);
    desktop.Expect("Maximum number of photos exceeded", Answer::Cancel);
    EXPECT_EQ(record.AddPhoto("source.png", CropMode::File, false), PhotoResult::Cancel);
    EXPECT_EQ(desktop.messages[0].title, "Photos exceeded");
    EXPECT_EQ(desktop.messages[0].buttons, Buttons::OkCancel);
}

TEST_F(ListingTest, AddPhoto_SameLength_IsRefusedAsDuplicate) {
    GivenListing({100, 200});
    desktop.Expect("Duplicate photos not allowed", Answer::Cancel);
    EXPECT_EQ(Capture(200), PhotoResult::Skip);
    EXPECT_EQ(Lengths(), (Lengths_{100, 200}));
    EXPECT_EQ(record.GetPhotoCount(), 2);
}

TEST_F(ListingTest, AddPhoto_Captured_IsInListAndSurvivesAKill) {
    owner.maximum = 2;
    GivenListing({100});
    crop.SetViews({{"Front", 2110}, {"Rear", 2111}});
    EXPECT_EQ(Capture(300, 1), PhotoResult::Done);
    EXPECT_EQ(owner.photos.Selected(), 1);
    EXPECT_EQ(owner.photos.At(1).text, "Rear");
    EXPECT_FALSE(owner.menu.IsEnabled("Open"));  // full now
    EXPECT_TRUE(owner.menu.IsEnabled("DeletePhoto"));
    EXPECT_EQ(Recovered(), record.State());
    EXPECT_EQ(Recovered().Photos[1].DescCode, "2111");
}

TEST_F(ListingTest, MovePhoto_FilesEntriesAndRows_ChangePlaces) {
    GivenListing({100, 200, 300});
    owner.photos.Select(2);
    record.SetDescription("Kitchen", "2112");
    const std::string stateFile = files::ReadAll(host.WorkingFolder() + "100123.dat");
    std::int16_t up = 1;
    record.MovePhoto(up);
    EXPECT_EQ(Lengths(), (Lengths_{100, 300, 200}));
    EXPECT_EQ(owner.photos.Selected(), 1);
    EXPECT_EQ(owner.photos.At(1).text, "Kitchen");
    EXPECT_EQ(record.State().Photos[1].DescCode, "2112");
    EXPECT_EQ(files::ReadAll(host.WorkingFolder() + "100123.dat"), stateFile);  // a move does not rewrite it
    EXPECT_EQ(Recovered(), record.State());
    EXPECT_TRUE(owner.up.Enabled() && owner.down.Enabled());
    record.MovePhoto(up);
    record.MovePhoto(up);  // already the first: nothing
    EXPECT_EQ(Lengths(), (Lengths_{300, 100, 200}));
    EXPECT_FALSE(owner.up.Enabled());
}

TEST_F(ListingTest, RemovePhoto_First_ClosesTheGap) {
    GivenListing({100, 200, 300});
    owner.photos.Select(0);
    record.RemovePhoto();
    EXPECT_EQ(Lengths(), (Lengths_{200, 300}));
    EXPECT_EQ(owner.photos.Selected(), 0);
    EXPECT_EQ(Recovered(), record.State());
    record.RemovePhoto();
    record.RemovePhoto();
    record.RemovePhoto();
    EXPECT_EQ(record.GetPhotoCount(), 0);
    EXPECT_FALSE(owner.menu.IsEnabled("View"));
    EXPECT_EQ(owner.preview.Image(), nullptr);
}

TEST_F(ListingTest, PrepareUpload_PublishedSizes_DecideWhatIsSent) {
    GivenListing({2000, 1500});
    const ListingState before = record.State();
    std::string files = " \"first\"";
    EXPECT_EQ(record.PrepareUpload(files, "1000,2000"), 1);
    const std::string folder = host.WorkingFolder();
    EXPECT_EQ(files, " \"first\" \"" + folder + "100123.dat\" \"" + folder + "100123b.jpg\"");
    const ListingState manifest = state_file::Read(folder + "100123.dat");
    EXPECT_EQ(manifest.Photos[0], (PhotoEntry{"2110", "", "b"}));
    EXPECT_EQ(manifest.Photos[1], (PhotoEntry{"2110", "", ""}));
    EXPECT_EQ(manifest.StreetName, "");
    EXPECT_EQ(Recovered(), before);  // killed now: the editing form is still there
    record.RestoreAfterUpload();
    EXPECT_EQ(state_file::Read(folder + "100123.dat"), before);
    EXPECT_EQ(record.State(), before);
}

TEST_F(ListingTest, PrepareUpload_APhotoIsGone_LeavesTheListAndComesBack) {
    GivenListing({2000, 1500});
    const ListingState before = record.State();
    files::Delete(record.PhotoPath(1));
    std::string files = " \"first\"";
    EXPECT_THROW(record.PrepareUpload(files, ""), FileError);
    EXPECT_EQ(files, " \"first\"");
    record.RestoreAfterUpload();
    EXPECT_EQ(record.State(), before);
}

TEST_F(ListingTest, CloseListing_Publish_ReplacesOnlyThisListingsFiles) {
    GivenListing({100, 200});
    const std::string published = host.ListingPhotoFolder(100123);
    files::WriteWhole(published + "100123z.jpg", "old");
    files::WriteWhole(published + "1001231a.jpg", "another listing");
    files::WriteWhole(host.WorkingFolder() + "1001231a.jpg", "another listing");
    record.CloseListing(LocalFiles::Delete, Publish::Yes);
    EXPECT_FALSE(files::FileExists(published + "100123z.jpg"));
    EXPECT_EQ(files::FileLength(published + "100123b.jpg"), 200U);
    EXPECT_TRUE(files::FileExists(published + "1001231a.jpg"));
    EXPECT_TRUE(files::FileExists(host.WorkingFolder() + "1001231a.jpg"));
    EXPECT_TRUE(Lengths().empty());
    EXPECT_EQ(owner.listings.Count(), 0);
    EXPECT_FALSE(owner.send.Enabled());
}

TEST_F(ListingTest, OpenSaved_ManifestLeftByAKilledSend_ShowsTextsAgain) {
    GivenListing({100});
    ListingState manifest = record.State();
    manifest.Photos[0] = {"2112", "", "a"};
    state_file::Write(host.WorkingFolder() + "100123.dat", manifest);
    clsPMListingRec again;
    again.OpenSaved("100123", descriptions, owner, host.WorkingFolder(), crop);
    EXPECT_EQ(again.State().Photos[0], (PhotoEntry{"2112", "Kitchen", ""}));
    EXPECT_TRUE(owner.menu.IsEnabled("SendPhotos"));
}

TEST_F(ListingTest, Load_UnreadableWorkInTheFolder_IsSetAside) {
    files::WriteWhole(host.WorkingFolder() + "100123.dat", "garbage");
    files::WriteWhole(host.WorkingFolder() + "100123a.jpg", "precious");
    GivenListing({100});
    EXPECT_EQ(files::ReadAll(host.WorkingFolder() + "Set aside/100123a.jpg"), "precious");
}

TEST_F(ListingTest, Photos_MoreThan26_AreAnIndexError) {
    GivenListing({});
    EXPECT_EQ(record.PhotoPath(25), host.WorkingFolder() + "100123z.jpg");
    EXPECT_THROW(record.PhotoPath(26), IndexError);
    GivenRow(FieldValue(27), FieldValue(), FieldValue());
    EXPECT_THROW(Load(), IndexError);
}

}  // namespace
}  // namespace lumarin
