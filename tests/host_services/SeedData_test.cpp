#include "host/demo/SeedData.h"

#include "base/Files.h"
#include "base/Text.h"
#include "host/database/Schema.h"
#include "host/demo/FileMoveAnimation.h"
#include "host/server/Jpeg.h"
#include "host/server/Server.h"
#include "host_services/HostFixture.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <set>

namespace host {
namespace {

namespace files = lumarin::files;

std::string Dump(const std::string& dataFolder) {
    Database database(DatabasePath(dataFolder), DatabaseUse::Queries);
    Statement rows(
        database,
        "SELECT group_concat(ListNum || FileName) || (SELECT count(*) FROM Listings) FROM ServerPhotos");
    rows.Step();
    return rows.Text(0);
}

std::size_t StoredFiles(const std::string& dataFolder) {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Server::PhotoFolder(dataFolder)))
        count += entry.is_regular_file() ? 1 : 0;
    return count;
}

TEST(SeedData, PublishedPhotos_AreSmallPicturesOfDifferentLength) {
    TestHost host({.dataFolder = SeededFolder()});
    const auto rows = host.Execute("SELECT PhoListNum,PhotoCount,PhotoVersion FROM Photo;");
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::vector<std::string> lengths =
            lumarin::text::Split(rows->Field("PhotoVersion").Text(), ',');
        EXPECT_EQ(std::set<std::string>(lengths.begin(), lengths.end()).size(), lengths.size());
        EXPECT_EQ(static_cast<int>(lengths.size()), rows->Field("PhotoCount").Integer());
        for (int position = 1; position <= static_cast<int>(lengths.size()); ++position) {
            const std::string jpeg = files::ReadAll(
                host.common.ListingServer().PhotoFile(rows->Field("PhoListNum").Integer(), position));
            EXPECT_EQ(std::to_string(jpeg.size()), lengths[static_cast<std::size_t>(position) - 1]);
            EXPECT_LE(jpeg.size(), 35000U);
            EXPECT_TRUE(IsWholeJpeg(jpeg));
        }
    }
}

TEST(SeedData, SecondStart_ChangesNothing) {
    const std::string before = Dump(SeededFolder());
    SeedData(SeededFolder());
    EXPECT_EQ(Dump(SeededFolder()), before);
}

TEST(SeedData, KilledHalfway_IsMadeWholeAtTheNextStart) {
    const lumarin::testing::TemporaryFolder folder;
    const pid_t child = fork();
    if (child == 0) {
        SeedData(folder.Path());
        _exit(0);
    }
    // As soon as some photos lie there.
    for (int wait = 0; wait < 2000; ++wait) {
        if (files::FolderExists(Server::PhotoFolder(folder.Path())) && StoredFiles(folder.Path()) > 5) break;
        usleep(5000);
    }
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    SeedData(folder.Path());
    TestHost host({.dataFolder = folder.Path()});
    EXPECT_EQ(StoredFiles(folder.Path()), StoredFiles(SeededFolder())) << "no leftovers, nothing missing";
    EXPECT_EQ(host.Keys("SELECT ListNum FROM Listings WHERE ListNum = 100500", "ListNum"), "100500");
}

TEST(DrawFileMove, Avi_HasAnIndexThatFindsEveryFrame) {
    const Animation animation = DrawFileMove();
    const std::string avi = AviBytes(animation);
    const auto number = [&](std::size_t at) {
        std::uint32_t value = 0;
        for (std::size_t i = 4; i-- > 0;) value = value << 8 | static_cast<std::uint8_t>(avi[at + i]);
        return value;
    };
    EXPECT_EQ(avi.substr(0, 4) + avi.substr(8, 4), "RIFFAVI ");
    EXPECT_EQ(number(4) + 8, avi.size());
    const std::size_t movie = avi.find("movi");
    const std::size_t index = avi.rfind("idx1");
    ASSERT_EQ(number(index + 4), animation.frames.size() * 16);
    EXPECT_GE(animation.frames.size(), 24U);
    for (std::size_t frame = 0; frame < animation.frames.size(); ++frame) {
        const std::size_t at = movie + number(index + 8 + frame * 16 + 8);
        EXPECT_EQ(avi.substr(at, 4), "00dc");
        EXPECT_EQ(avi.substr(at + 8, number(at + 4)), animation.frames[frame]);
    }
}

}  // namespace
}  // namespace host
