#include "host_services/HostFixture.h"

#include "base/Error.h"
#include "base/Files.h"
#include "host/database/Schema.h"
#include "host/demo/SeedData.h"
#include "host/desktop/Overview.h"

namespace host {

namespace files = lumarin::files;

/// A data folder that holds the demo data, made once for all tests, which leave it as it is.
const std::string& SeededFolder() {
    static const lumarin::testing::TemporaryFolder folder;
    static const std::string path = (SeedData(folder.Path()), folder.Path());
    return path;
}

TEST(HostVelCommon, SignedInUser_ActsForTheCompanysOfficesAndSeesTheListingsInReach) {
    const std::tuple<int, const char*, const char*, const char*, const char*, bool, std::size_t> cases[] = {
        {59, "A101", "OF1", "1", ",OF1,OF3,'OF1','OF3',", false, 11},
        {59, "A202", "OF1", "1", ",OF1,OF3,'OF1','OF3',", false, 4},
        {60, "A101", "OF4", "1", ",OF2,OF4,'OF2','OF4',", true, 5},
        {60, "A101", "NONE", "1", ",NONE,'NONE',", false, 0},
        {90, "A101", "OF1", "2", ",OF1,OF3,'OF1','OF3',", true, 12},
        {100, "A101", "OF1", "1", ",OF1,OF3,'OF1','OF3',", true, 40}};
    for (const auto& [level, agent, office, board, managed, several, listings] : cases) {
        SCOPED_TRACE(std::to_string(level) + agent + office);
        const HostOptions user{
            .dataFolder = SeededFolder(), .level = level, .agent = agent, .office = office, .board = board};
        const TestHost host(user);
        EXPECT_EQ(host.common.ManagedOffices(), managed);
        EXPECT_EQ(host.common.HasSeveralOffices(), several);
        Database database(DatabasePath(SeededFolder()), DatabaseUse::Queries);
        EXPECT_EQ(ReadOverview(database, user).listings.size(), listings);
    }
}

TEST(HostVelCommon, FetchPhoto_AlsoAfterLookingAhead_CopiesWhatIsMissingOrOfAnotherLength) {
    TestHost host({.dataFolder = SeededFolder()});
    const std::string version =
        host.Keys("SELECT PhotoVersion FROM Photo WHERE PhoListNum = 100123;", "PhotoVersion");
    const auto length = [&](int number, const std::string& wanted) {
        return files::FileLength(host.common.FetchPhoto(100123, number, wanted));
    };
    const auto lengths = [&] {
        return std::to_string(length(1, version)) + "," + std::to_string(length(2, version)) + "," +
               std::to_string(length(3, version));
    };
    EXPECT_EQ(lengths(), version);
    const std::string photo = host.common.PhotoFolder() + "2/3/100123";
    files::WriteWhole(photo + "a.jpg", "older");
    files::Delete(photo + "b.jpg");
    EXPECT_EQ(length(1, ""), 5U) << "without a version any photo will do";
    host.common.ExpectFetches();
    EXPECT_EQ(lengths(), version);

    for (const auto& [listing, number] : {std::pair{100123, 4}, {100123, 0}, {100123, 27}, {-1, 1}})
        EXPECT_THROW(host.common.FetchPhoto(listing, number, ""), lumarin::Error) << listing << number;
}

TEST(PhotoService, BadPackage_BegunByOneServiceObjectEndedByAnother_IsRefusedWithItsReason) {
    TestHost host({.dataFolder = SeededFolder()});
    const auto begins = lumarin::RequestService<lumarin::PhotoInterface>(host.common);
    const auto goesOn = lumarin::RequestService<lumarin::PhotoInterface>(host.common);
    begins->UploadPhotoFile("p.zip", lumarin::UploadMode::Begin);
    goesOn->UploadPhotoFile(std::as_bytes(std::span("no package")));
    goesOn->UploadPhotoFile("", lumarin::UploadMode::Abort);  // it has begun nothing
    goesOn->UploadPhotoFile("", lumarin::UploadMode::End);
    EXPECT_EQ(goesOn->BatchUpdate("VELTRANE", "p.zip", lumarin::BatchKind::PhotoPackage), 1);
    const std::string log = files::ReadAll(Server::Folder(SeededFolder()) + "server.log");
    EXPECT_NE(log.find("refused p.zip: The package cannot be read as a zip archive"), std::string::npos);
}

}  // namespace host
