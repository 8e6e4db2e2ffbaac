#include "listing/StateFile.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "base/Files.h"
#include "support/TemporaryFolder.h"

namespace lumarin {
namespace {

ListingState SomeState() {
    ListingState state;
    state.ListNum = 100123;
    state.PhotoCount = 2;
    state.StreetNumber = "12";
    state.StreetName = "Élysée Ave";
    state.Photos[0] = {"2110", "Front", "b"};
    state.Photos[1] = {"2111", "", ""};
    return state;
}

TEST(StateFile, Encode_Layout_IsTheOneOnTheWire) {
    const std::string bytes = state_file::Encode(SomeState());
    const std::string start(
        "\x1B\x87\x01\x00\x02\x00\x00\x00\x02\x00"
        "12\x00\x00\x0A\x00\xC9lys\xE9"
        "e Ave\x04\x00"
        "2110",
        32);
    EXPECT_EQ(bytes.substr(0, start.size()), start);
    // All 26 entries always, empty texts as a length of 0.
    const std::size_t texts = std::string("12Elysee Ave2110Frontb2111").size();
    EXPECT_EQ(bytes.size(), 8 + (3 + 26 * 3) * 2 + texts);
}

TEST(StateFile, Write_ShorterState_LeavesTheOldEndAndReadsBack) {
    const testing::TemporaryFolder folder;
    const std::string path = folder.Path() + "100123.dat";
    ListingState state = SomeState();
    state_file::Write(path, state);
    const std::string longer = files::ReadAll(path);
    state.StreetName = "";
    state_file::Write(path, state);
    const std::string written = files::ReadAll(path);
    EXPECT_EQ(written.size(), longer.size());
    EXPECT_EQ(written.substr(state_file::EncodedSize(written)), longer.substr(longer.size() - 10));
    EXPECT_EQ(state_file::Read(path), state);
}

TEST(StateFile, Decode_CutOrImpossible_IsRefused) {
    const std::string whole = state_file::Encode(SomeState());
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_THROW(state_file::Decode(whole.substr(0, size)), Error) << size;
    std::string many = whole;
    many[4] = 27;
    EXPECT_THROW(state_file::Decode(many), Error);
    std::string negative = whole;
    negative[3] = '\x80';
    EXPECT_THROW(state_file::Decode(negative), Error);
}

}  // namespace
}  // namespace lumarin
