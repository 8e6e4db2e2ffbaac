#include "listing/PhotoJournal.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "base/Files.h"
#include "listing/ListingFiles.h"
#include "listing/StateFile.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

using photo_journal::Operation;
using Codes = std::vector<std::string>;
using Photos = std::vector<std::string>;

ListingState StateOf(const Codes& codes) {
    ListingState state;
    state.ListNum = 5;
    state.PhotoCount = static_cast<int>(codes.size());
    for (std::size_t i = 0; i < codes.size(); ++i) state.Photos[i].DescCode = codes[i];
    return state;
}

/// A listing's folder as a killed run left it. A photo is known by its content: "A" was the first, and so on.
class JournalTest : public ::testing::Test {
protected:
    void GivenFile(const std::string& ending, const std::string& content) {
        files::WriteWhole(folder.Path() + "5" + ending, content);
    }
    void GivenState(const Codes& codes) { state_file::Write(folder.Path() + "5.dat", StateOf(codes)); }
    void GivenJournal(Operation operation, int first, int second, const Codes& codes) {
        photo_journal::Write(folder.Path(), {operation, first, second, StateOf(codes)});
    }
    /// "code:content" of each photo after the recovery, which must also leave no other photo file.
    Photos Recovered() {
        const ListingState state = photo_journal::Recover(folder.Path(), 5).state;
        Photos photos;
        for (int i = 0; i < state.PhotoCount; ++i)
            photos.push_back(state.Photos[static_cast<std::size_t>(i)].DescCode + ":" +
                             files::ReadAll(folder.Path() + listing_files::PhotoName(5, i)));
        EXPECT_EQ(listing_files::List(folder.Path(), 5, ".jpg").size(), photos.size());
        EXPECT_TRUE(listing_files::List(folder.Path(), 5, ".tmp").empty());
        return photos;
    }

    testing::TemporaryFolder folder;
};

TEST_F(JournalTest, Work_KilledAnywhere_IsUndoneOrFinished) {
    const Photos before = {"a:A", "bb:BB", "ccc:CCC"}, moved = {"bb:BB", "a:A", "ccc:CCC"};
    const Photos removed = {"a:A", "ccc:CCC"}, added = {"a:A", "bb:BB", "ccc:CCC", "2110:DDDD"};
    const struct {
        std::optional<Operation> journal;
        std::map<std::string, std::string> files;
        Photos recovered;
    } cases[] = {
        {{}, {{"a.jpg", "A"}, {"b.tmp", "BB"}, {"c.jpg", "CCC"}}, before},  // a move's first rename
        {{}, {{"b.tmp", "BB"}, {"b.jpg", "A"}, {"c.jpg", "CCC"}}, before},  // its second
        {Operation::Move, {{"b.tmp", "BB"}, {"b.jpg", "A"}, {"c.jpg", "CCC"}}, moved},
        {Operation::Move, {{"a.jpg", "BB"}, {"b.jpg", "A"}, {"c.jpg", "CCC"}}, moved},
        {Operation::Remove, {{"a.jpg", "A"}, {"b.jpg", "BB"}, {"c.jpg", "CCC"}}, removed},
        {Operation::Remove, {{"a.jpg", "A"}, {"c.jpg", "CCC"}}, removed},
        {Operation::Remove, {{"a.jpg", "A"}, {"b.jpg", "CCC"}}, removed},
        {{}, {{"a.jpg", "A"}, {"b.jpg", "BB"}, {"c.jpg", "CCC"}, {"d.jpg", "XX"}}, before},  // a duplicate
        {{}, {{"a.jpg", "A"}, {"b.jpg", "BB"}, {"c.jpg", "CCC"}, {"d.jpg", "DDDD"}}, added},
    };
    for (const auto& [journal, files, recovered] : cases) {
        SCOPED_TRACE(&recovered - &cases[0].recovered);
        listing_files::DeleteAll(folder.Path(), 5);
        GivenState({"a", "bb", "ccc"});
        if (journal == Operation::Move) GivenJournal(Operation::Move, 1, 0, {"bb", "a", "ccc"});
        if (journal == Operation::Remove) GivenJournal(Operation::Remove, 1, 0, {"a", "ccc"});
        for (const auto& [ending, content] : files) GivenFile(ending, content);
        EXPECT_EQ(Recovered(), recovered);
    }
}

TEST_F(JournalTest, Remove_OfAFullListing_KilledAtOnce_IsFinished) {
    Codes codes;
    for (int i = 0; i < MaximumPhotoSlots; ++i) {
        GivenFile(std::string(1, static_cast<char>('a' + i)) + ".jpg", std::to_string(i));
        codes.push_back(std::to_string(i));
    }
    codes.erase(codes.begin());
    GivenJournal(Operation::Remove, 0, 0, codes);
    const Photos photos = Recovered();
    ASSERT_EQ(photos.size(), 25U);
    EXPECT_EQ(photos[0] + " " + photos[24], "1:1 25:25");
}

TEST_F(JournalTest, Journal_Damaged_IsNotPassedOver) {
    constexpr std::size_t EmptyHistory = 13;  // with its check
    GivenFile("a.jpg", "A");
    GivenJournal(Operation::None, 0, 0, {"a"});
    const std::string sound = files::ReadAll(folder.Path() + "5.jnl");
    for (std::size_t at = 0; at <= sound.size(); ++at) {
        std::string damaged = sound + '\0';
        if (at < sound.size()) damaged.pop_back(), ++damaged[at];
        GivenFile(".jnl", damaged);
        try {
            EXPECT_TRUE(photo_journal::Recover(folder.Path(), 5).historyLost) << at;
            EXPECT_EQ(Recovered(), Photos{"a:A"});
        } catch (const Error&) {
            EXPECT_LT(at, sound.size() - EmptyHistory) << "where the photos stand";
        }
    }
    const std::string state = state_file::Encode(StateOf({"z"}));
    for (const std::string& journal :
         {std::string("LJ1\x01\x7F\x7F", 6) + state, std::string("LJ1\x04\x00\x00", 6) + state,
          std::string("LJ"), std::string("LJ1\x00\x00\x00", 6) + state.substr(0, 20),
          std::string(400, '\0')}) {
        GivenFile(".jnl", journal);
        EXPECT_THROW(Recovered(), Error);
    }
}

TEST(StateFile, Write_LayoutIsTheOneOnTheWire_AndAShorterStateLeavesTheOldEnd) {
    const testing::TemporaryFolder folder;
    const std::string path = folder.Path() + "100123.dat";
    ListingState state = StateOf({"2110", "2111"});
    state.ListNum = 100123;
    state.StreetNumber = "12";
    state.StreetName = "Élysée Ave";
    state.Photos[0] = {"2110", "Front", "b"};
    state_file::Write(path, state);
    const std::string longer = files::ReadAll(path);
    const std::string start(
        "\x1B\x87\x01\x00\x02\x00\x00\x00\x02\x00"
        "12\x00\x00\x0A\x00\xC9lys\xE9"
        "e Ave\x04\x00"
        "2110",
        32);
    EXPECT_EQ(longer.substr(0, start.size()), start);
    // All 26 entries always, empty texts as a length of 0.
    const std::size_t texts = std::string("12Elysee Ave2110Frontb2111").size();
    EXPECT_EQ(longer.size(), 8 + (3 + 26 * 3) * 2 + texts);

    state.StreetName = "";
    state_file::Write(path, state);
    const std::string written = files::ReadAll(path);
    EXPECT_EQ(written.size(), longer.size());
    EXPECT_EQ(written.substr(state_file::EncodedSize(written)), longer.substr(longer.size() - 10));
    EXPECT_EQ(state_file::Read(path), state);
}

}  // namespace lumarin
