#include "host_services/HostFixture.h"

#include "base/Error.h"
#include "base/Files.h"

namespace host {
namespace {

namespace files = lumarin::files;

TEST(HostVelCommon, SignedInUser_ActsForTheCompanysOffices) {
    const struct {
        int level;
        const char* office;
        const char* managed;
        bool several;
    } cases[] = {{59, "OF1", ",OF1,OF3,'OF1','OF3',", false},
                 {60, "OF4", ",OF2,OF4,'OF2','OF4',", true},
                 {60, "NONE", ",NONE,'NONE',", false}};
    for (const auto& row : cases) {
        TestHost host({.dataFolder = SeededFolder(), .level = row.level, .office = row.office});
        EXPECT_EQ(host.common.ManagedOffices(), row.managed);
        EXPECT_EQ(host.common.HasSeveralOffices(), row.several) << row.level << row.office;
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

}  // namespace
}  // namespace host
