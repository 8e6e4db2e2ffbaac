#include "host/demo/SeedData.h"

#include "base/Files.h"
#include "host_services/HostFixture.h"
#include "reliability/DiskFaults.h"

#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

namespace host {

namespace {

std::ptrdiff_t StoredPhotos(const std::string& dataFolder) {
    std::error_code none;
    const std::filesystem::recursive_directory_iterator entries(Server::PhotoFolder(dataFolder), none);
    return std::distance(begin(entries), end(entries));
}

// By its name it runs before all others: the process that it makes must not inherit the threads of their
// drawing.
TEST(SeedDataDeathTest, KilledHalfway_IsMadeWholeAtTheNextStart) {
    const lumarin::testing::TemporaryFolder folder;
    const pid_t child = fork();
    if (child == 0) {
        lumarin::disk_faults::Begin(folder.Path(), lumarin::disk_faults::Kind::Killed, 100);
        SeedData(folder.Path());
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status) && StoredPhotos(folder.Path()) >= 5) << "not halfway";
    SeedData(folder.Path());
    EXPECT_EQ(StoredPhotos(folder.Path()), StoredPhotos(SeededFolder()));
    EXPECT_TRUE(lumarin::files::HasEntries(folder.Path() + "city/Users/Default/Rental/")) << "rentals in use";
}

}  // namespace
}  // namespace host
