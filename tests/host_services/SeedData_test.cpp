#include "host/demo/SeedData.h"

#include "base/Files.h"
#include "base/Text.h"
#include "host/server/Jpeg.h"
#include "host/server/Server.h"
#include "host_services/HostFixture.h"

#include <sys/wait.h>
#include <unistd.h>
#include <csignal>

#include <filesystem>
#include <set>

namespace host {
namespace {

namespace files = lumarin::files;

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
    const auto listings = [](const std::string& path) {
        return TestHost({.dataFolder = path}).Keys("SELECT ListNum FROM Listings", "ListNum");
    };
    for (const char* start : {"the next", "the one after it, which changes nothing"}) {
        SeedData(folder.Path());
        EXPECT_EQ(StoredFiles(folder.Path()), StoredFiles(SeededFolder())) << start;
        EXPECT_EQ(listings(folder.Path()), listings(SeededFolder())) << start;
    }
}

}  // namespace
}  // namespace host
