#include "listing/clsPMListingRec.h"

#include "listing/ListingFiles.h"
#include "listing/StateFile.h"
#include "support/WindowTest.h"

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

class ListingTest : public testing::WindowTest {
protected:
    using Lengths = std::vector<std::uint64_t>;

    ListingTest() {
        files::EnsureFolder(working);
        crop.SetPhotoSize("480,300,35,35000,4");
        imaging.pictures["source.png"] = {1600, 1000, false};
    }

    /// Answers every listing query with this row.
    void GivenRow(const testing::FakeField& count, const testing::FakeField& version = {},
                  const testing::FakeField& codes = {}) {
        host.onQuery = [=](const std::string&) -> testing::FakeTable {
            return {{"ListNum", "PhotoCount", "PhotoVersion", "PhotoDesc", "StreetNumber", "StreetName",
                     "StreetDirection", "ListOfficeId", "ListAgentId", "RevisionNumber", "BoardId"},
                    {{100123, count, version, codes, "12", "Elm St", {}, "OF1", "A101", 1, "1"}}};
        };
    }
    /// A loaded listing with photos of these lengths.
    void GivenListing(const std::vector<std::size_t>& lengths) {
        host.Publish(100123, lengths);
        GivenRow(lengths.size());
        ASSERT_EQ(Load(), LoadResult::Loaded);
        record.ShowPhotos();
    }
    LoadResult Load(const std::string& number = "100123") {
        return record.LoadListing(number, working, owner, descriptions, crop);
    }
    PhotoResult Capture(std::size_t length, int view = 0) {
        imaging.captureLengths.push_back(length);
        desktop.Play("frmPhotoCrop", [view](frmPhotoCrop& window) {
            if (view > 0) window.cmbView.SetListIndex(view);
            window.cmdCapture.Press();
        });
        return record.AddPhoto("source.png", CropMode::File, false);
    }
    Lengths FileLengths() {
        Lengths lengths;
        for (const std::string& name : listing_files::List(working, 100123, ".jpg"))
            lengths.push_back(files::FileLength(working + name));
        return lengths;
    }
    ListingState Recovered() { return photo_journal::Recover(working, 100123); }

    const std::string working = host.WorkingFolder();
    OwnerForm owner{desktop, link};
    frmPhotoCrop crop{desktop, imaging};
    DescriptionTable descriptions{host.PhotoDescriptions()};
    clsPMListingRec record;
};

TEST_F(ListingTest, Load_Descriptions_FirstEntryOfTheColumnIsNoCode) {
    const struct {
        const char* name;
        testing::FakeField count, codes;
        const char* expected;
    } cases[] = {
        {"none stored", 3, {}, "2110 2110 2110 "},
        {"stored", 2, "X,2111,2112", "2111 2112 "},
        {"too few stored", 2, "X,2112", "2112 2110 "},
        {"no photos", {}, {}, ""},
    };
    host.Publish(100123, {100, 200, 300});
    for (const auto& test : cases) {
        GivenRow(test.count, "100,200", test.codes);
        ASSERT_EQ(Load(), LoadResult::Loaded) << test.name;
        std::string codes;
        for (int i = 0; i < record.GetPhotoCount(); ++i)
            codes += record.State().Photos[static_cast<std::size_t>(i)].DescCode + " ";
        EXPECT_EQ(codes, test.expected) << test.name;
        EXPECT_EQ(state_file::Read(working + "100123.dat"), record.State()) << test.name;
    }
    EXPECT_EQ(host.fetched.front(), "100123 1 100,200");
    EXPECT_EQ(owner.listings.At(0).subItems, (Texts{"12", "", "Elm St"}));
}

TEST_F(ListingTest, Load_Access_FollowsTheLevel) {
    const struct {
        int level;
        const char *agent, *office, *board, *managed;
        bool several, may;
    } cases[] = {
        {59, "A101", "X", "9", "", false, true},      {59, "A102", "OF1", "1", "", false, false},
        {60, "X", "OF1", "9", "", false, true},       {89, "X", "OF2", "9", ",OF2,OF1,", true, true},
        {60, "X", "OF2", "9", ",OF1,", false, false}, {89, "X", "OF2", "9", ",OF2,OF11,", true, false},
        {90, "X", "X", "1", "", false, true},         {99, "A101", "OF1", "2", "", false, false},
        {100, "X", "X", "9", "", false, true},
    };
    GivenRow({});
    for (const auto& test : cases) {
        host.level = test.level;
        host.agent = test.agent;
        host.office = test.office;
        host.board = test.board;
        host.managedOffices = test.managed;
        host.severalOffices = test.several;
        EXPECT_EQ(Load() == LoadResult::Loaded, test.may) << test.level << test.managed;
    }
}

TEST_F(ListingTest, Load_NoListing_AsksForRentalsOnlyWhenTheyAreInUse) {
    EXPECT_EQ(Load(), LoadResult::Failed);
    EXPECT_EQ(host.queries.size(), 1U);
    files::EnsureFolder(host.CityFolder() + "Users/Default/Rental/someone");
    EXPECT_EQ(Load(), LoadResult::Failed);
    ASSERT_EQ(host.queries.size(), 3U);
    EXPECT_EQ(host.queries[2],
              "SELECT ListNum,PhotoCount,PhotoVersion,PhotoDesc,StreetNumber,StreetName,StreetDirection,"
              "ListOfficeId,ListAgentId,RevisionNumber,BoardId From Rentals Left join photo on "
              "Rentals.ListNum = Photo.PhoListNum WHERE Rentals.ListNum = 100123;");
    EXPECT_EQ(Load("100123 or 1=1"), LoadResult::Failed);
    EXPECT_EQ(host.queries.size(), 3U);
}

TEST_F(ListingTest, Load_PhotoMissingAtTheHost_FailsAndLeavesNothing) {
    host.Publish(100123, {100});
    GivenRow(2);
    EXPECT_THROW(Load(), Error);
    EXPECT_TRUE(listing_files::List(working, 100123).empty());
    EXPECT_EQ(owner.listings.Count(), 0);
    host.onQuery = [](const std::string&) -> testing::FakeTable { throw Error(1, "db", "gone"); };
    EXPECT_EQ(Load(), LoadResult::Failed);
}

TEST_F(ListingTest, AddPhoto_TooManyOrTheSameLength_IsRefused) {
    GivenListing({100, 200});
    desktop.Expect("Duplicate photos not allowed", Answer::Cancel);
    EXPECT_EQ(Capture(200), PhotoResult::Skip);
    EXPECT_EQ(FileLengths(), (Lengths{100, 200}));
    owner.maximum = 2;
    for (const auto& [answer, result] :
         {std::pair{Answer::Ok, PhotoResult::Skip}, {Answer::Cancel, PhotoResult::Cancel}}) {
        desktop.Expect("Maximum number of photos exceeded", answer, "Photos exceeded");
        EXPECT_EQ(record.AddPhoto("source.png", CropMode::File, false), result);
        EXPECT_EQ(desktop.messages.back().buttons, Buttons::OkCancel);
    }
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
    const std::string stateFile = files::ReadAll(working + "100123.dat");
    std::int16_t up = 1;
    record.MovePhoto(up);
    EXPECT_EQ(FileLengths(), (Lengths{100, 300, 200}));
    EXPECT_EQ(owner.photos.Selected(), 1);
    EXPECT_EQ(owner.photos.At(1).text, "Kitchen");
    EXPECT_EQ(record.State().Photos[1].DescCode, "2112");
    EXPECT_EQ(files::ReadAll(working + "100123.dat"), stateFile);  // a move does not rewrite it
    EXPECT_EQ(Recovered(), record.State());
    EXPECT_TRUE(owner.up.Enabled() && owner.down.Enabled());
    record.MovePhoto(up);
    record.MovePhoto(up);  // already the first: nothing
    EXPECT_EQ(FileLengths(), (Lengths{300, 100, 200}));
    EXPECT_FALSE(owner.up.Enabled());
}

TEST_F(ListingTest, RemovePhoto_First_ClosesTheGap) {
    GivenListing({100, 200, 300});
    owner.photos.Select(0);
    record.RemovePhoto();
    EXPECT_EQ(FileLengths(), (Lengths{200, 300}));
    EXPECT_EQ(owner.photos.Selected(), 0);
    EXPECT_EQ(Recovered(), record.State());
    for (int i = 0; i < 3; ++i) record.RemovePhoto();
    EXPECT_EQ(record.GetPhotoCount(), 0);
    EXPECT_FALSE(owner.menu.IsEnabled("View"));
    EXPECT_EQ(owner.preview.Image(), nullptr);
}

TEST_F(ListingTest, CloseListing_Publish_ReplacesOnlyThisListingsFiles) {
    GivenListing({100, 200});
    const std::string published = host.ListingPhotoFolder(100123);
    for (const std::string& other :
         {published + "100123z.jpg", published + "1001231a.jpg", working + "1001231a.jpg"})
        files::WriteWhole(other, "another listing's, or old");
    record.CloseListing(LocalFiles::Delete, Publish::Yes);
    EXPECT_FALSE(files::FileExists(published + "100123z.jpg"));
    EXPECT_EQ(files::FileLength(published + "100123b.jpg"), 200U);
    EXPECT_TRUE(files::FileExists(published + "1001231a.jpg"));
    EXPECT_TRUE(files::FileExists(working + "1001231a.jpg"));
    EXPECT_TRUE(FileLengths().empty());
    EXPECT_EQ(owner.listings.Count(), 0);
    EXPECT_FALSE(owner.send.Enabled());
}

TEST_F(ListingTest, OpenSaved_ManifestLeftByAKilledSend_ShowsTextsAgain) {
    GivenListing({100});
    ListingState manifest = record.State();
    manifest.Photos[0] = {"2112", "", "a"};
    state_file::Write(working + "100123.dat", manifest);
    clsPMListingRec again;
    again.OpenSaved("100123", descriptions, owner, working, crop);
    EXPECT_EQ(again.State().Photos[0], (PhotoEntry{"2112", "Kitchen", ""}));
    EXPECT_TRUE(owner.menu.IsEnabled("SendPhotos"));
}

TEST_F(ListingTest, Load_UnreadableWorkInTheFolder_IsSetAside) {
    files::WriteWhole(working + "100123.dat", "garbage");
    files::WriteWhole(working + "100123a.jpg", "precious");
    GivenListing({100});
    EXPECT_EQ(files::ReadAll(working + "Set aside/100123a.jpg"), "precious");
}

TEST_F(ListingTest, Photos_MoreThan26_AreAnIndexError) {
    GivenListing({});
    EXPECT_EQ(record.PhotoPath(25), working + "100123z.jpg");
    EXPECT_THROW(record.PhotoPath(26), IndexError);
    GivenRow(27);
    EXPECT_THROW(Load(), IndexError);
}

}  // namespace
}  // namespace lumarin
