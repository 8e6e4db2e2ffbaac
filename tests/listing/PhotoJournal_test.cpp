#include "listing/PhotoJournal.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "base/Files.h"
#include "listing/ListingFiles.h"
#include "listing/StateFile.h"
#include "support/TemporaryFolder.h"

namespace lumarin {
namespace {

using photo_journal::Entry;
using photo_journal::Operation;

/// A listing's folder as a killed run left it. A photo is known by its content: "A" was the first, and so on.
class JournalTest : public ::testing::Test {
protected:
    void GivenFiles(const std::map<std::string, std::string>& contents) {
        for (const auto& [name, content] : contents) files::WriteWhole(folder.Path() + "5" + name, content);
    }
    ListingState StateOf(const std::vector<std::string>& codes) {
        ListingState state;
        state.ListNum = 5;
        state.PhotoCount = static_cast<int>(codes.size());
        for (std::size_t i = 0; i < codes.size(); ++i) state.Photos[i].DescCode = codes[i];
        return state;
    }
    void GivenState(const std::vector<std::string>& codes) {
        state_file::Write(folder.Path() + "5.dat", StateOf(codes));
    }
    void GivenJournal(Operation operation, int first, int second, const std::vector<std::string>& codes) {
        photo_journal::Write(folder.Path(), {operation, first, second, StateOf(codes)});
    }
    /// "code:content" of each photo after the recovery, which must also leave no other photo file.
    std::vector<std::string> Recovered() {
        const ListingState state = photo_journal::Recover(folder.Path(), 5);
        std::vector<std::string> photos;
        for (int i = 0; i < state.PhotoCount; ++i)
            photos.push_back(state.Photos[static_cast<std::size_t>(i)].DescCode + ":" +
                             files::ReadAll(folder.Path() + listing_files::PhotoName(5, i)));
        EXPECT_EQ(listing_files::List(folder.Path(), 5, ".jpg").size(), photos.size());
        EXPECT_TRUE(listing_files::List(folder.Path(), 5, ".tmp").empty());
        return photos;
    }
    using Photos = std::vector<std::string>;

    testing::TemporaryFolder folder;
};

TEST_F(JournalTest, Move_KilledAfterTheFirstRename_IsUndone) {
    GivenState({"a", "bb", "ccc"});
    GivenFiles({{"a.jpg", "A"}, {"b.tmp", "BB"}, {"c.jpg", "CCC"}});
    EXPECT_EQ(Recovered(), (Photos{"a:A", "bb:BB", "ccc:CCC"}));
}

TEST_F(JournalTest, Move_KilledAfterTheSecondRename_IsUndone) {
    GivenState({"a", "bb", "ccc"});
    GivenFiles({{"b.tmp", "BB"}, {"b.jpg", "A"}, {"c.jpg", "CCC"}});
    EXPECT_EQ(Recovered(), (Photos{"a:A", "bb:BB", "ccc:CCC"}));
}

TEST_F(JournalTest, Move_KilledBeforeTheThirdRename_IsFinished) {
    GivenState({"a", "bb", "ccc"});
    GivenJournal(Operation::Move, 1, 0, {"bb", "a", "ccc"});
    GivenFiles({{"b.tmp", "BB"}, {"b.jpg", "A"}, {"c.jpg", "CCC"}});
    EXPECT_EQ(Recovered(), (Photos{"bb:BB", "a:A", "ccc:CCC"}));
}

TEST_F(JournalTest, Move_KilledRightAfterIt_KeepsTheNewOrder) {
    GivenState({"a", "bb"});
    GivenJournal(Operation::Move, 1, 0, {"bb", "a"});
    GivenFiles({{"a.jpg", "BB"}, {"b.jpg", "A"}});
    EXPECT_EQ(Recovered(), (Photos{"bb:BB", "a:A"}));
}

TEST_F(JournalTest, Remove_KilledAnywhere_IsFinished) {
    const std::map<std::string, std::string> stages[] = {
        {{"a.jpg", "A"}, {"b.jpg", "BB"}, {"c.jpg", "CCC"}, {"d.jpg", "DDDD"}},
        {{"a.jpg", "A"}, {"c.jpg", "CCC"}, {"d.jpg", "DDDD"}},
        {{"a.jpg", "A"}, {"b.jpg", "CCC"}, {"d.jpg", "DDDD"}},
        {{"a.jpg", "A"}, {"b.jpg", "CCC"}, {"c.jpg", "DDDD"}},
    };
    for (const auto& stage : stages) {
        listing_files::DeleteAll(folder.Path(), 5);
        GivenState({"a", "bb", "ccc", "dddd"});
        GivenJournal(Operation::Remove, 1, 0, {"a", "ccc", "dddd"});
        GivenFiles(stage);
        EXPECT_EQ(Recovered(), (Photos{"a:A", "ccc:CCC", "dddd:DDDD"}));
    }
}

TEST_F(JournalTest, Remove_OfAFullListing_KilledAtOnce_IsFinished) {
    std::vector<std::string> codes;
    for (int i = 0; i < MaximumPhotoSlots; ++i) {
        codes.push_back(std::to_string(i));
        files::WriteWhole(folder.Path() + listing_files::PhotoName(5, i),
                          std::string(static_cast<std::size_t>(i) + 1, 'x'));
    }
    codes.erase(codes.begin());
    GivenJournal(Operation::Remove, 0, 0, codes);
    const Photos photos = Recovered();
    ASSERT_EQ(photos.size(), 25U);
    EXPECT_EQ(photos[0], "1:xx");
    EXPECT_EQ(photos[24], "25:" + std::string(26, 'x'));
}

TEST_F(JournalTest, Add_KilledAfterTheCapture_TakesThePhotoIn) {
    GivenState({"a"});
    GivenFiles({{"a.jpg", "A"}, {"b.jpg", "BB"}});
    EXPECT_EQ(Recovered(), (Photos{"a:A", "2110:BB"}));
}

TEST_F(JournalTest, Add_KilledBeforeADuplicateWasDeleted_DropsIt) {
    GivenState({"a"});
    GivenFiles({{"a.jpg", "A"}, {"b.jpg", "X"}});
    EXPECT_EQ(Recovered(), Photos{"a:A"});
}

TEST_F(JournalTest, Journal_Damaged_FallsBackOnTheStateFile) {
    GivenState({"a"});
    GivenFiles(
        {{"a.jpg", "A"}, {".jnl", std::string("LJ1\x01\x7F\x7F", 6) + state_file::Encode(StateOf({"z"}))}});
    EXPECT_EQ(Recovered(), Photos{"a:A"});
    GivenFiles({{".jnl", "LJ"}});
    EXPECT_EQ(Recovered(), Photos{"a:A"});
}

TEST_F(JournalTest, StateFile_DamagedOrOfAnotherListing_IsRefusedAndKept) {
    GivenFiles({{".dat", "garbage"}, {"a.jpg", "A"}});
    EXPECT_THROW(photo_journal::Recover(folder.Path(), 5), Error);
    EXPECT_EQ(files::ReadAll(folder.Path() + "5.dat"), "garbage");
    ListingState other = StateOf({});
    other.ListNum = 6;
    state_file::Write(folder.Path() + "5.dat", other);
    EXPECT_THROW(photo_journal::Recover(folder.Path(), 5), Error);
}

}  // namespace
}  // namespace lumarin
