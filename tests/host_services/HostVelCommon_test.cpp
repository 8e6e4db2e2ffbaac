#include "host_services/HostFixture.h"

#include "base/Error.h"
#include "base/Files.h"
#include "base/Text.h"
#include "entry/Settings.h"
#include "host/demo/SeedData.h"
#include "host_server/PackageBuilder.h"

#include <filesystem>

namespace host {
namespace {

namespace files = lumarin::files;

TEST(HostVelCommon, FoldersAndSettings_AreThereWithDefaults) {
    const lumarin::testing::TemporaryFolder folder;
    TestHost host({.dataFolder = folder.Path() + "new"});
    for (const std::string& path : {host.common.ProgramFolder(), host.common.CityFolder(),
                                    host.common.UserFolder(), host.common.PhotoFolder()}) {
        EXPECT_TRUE(path.ends_with(files::Separator)) << path;
        EXPECT_TRUE(files::FolderExists(path)) << path;
    }
    const std::string settings = host.common.CityFolder() + "CityInfo.ini";
    EXPECT_EQ(lumarin::settings::ReadText(settings, "Lumarin", "Photo Size", ""), "480,300,35,35000,4");
    EXPECT_EQ(lumarin::settings::ReadInteger(settings, "Lumarin", "Photo Maximum", 0), 10);
    EXPECT_TRUE(files::HasEntries(host.common.CityFolder() + files::FixedPath("Users\\Default\\Rental\\")));

    lumarin::settings::WriteText(settings, "Lumarin", "Photo Maximum", "4");
    TestHost again({.dataFolder = folder.Path() + "new"});
    EXPECT_EQ(lumarin::settings::ReadInteger(settings, "Lumarin", "Photo Maximum", 0), 4)
        << "a user's setting stays";
    host.common.EndJob(7);
    EXPECT_EQ(host.endedJob, 7);
    EXPECT_THROW(host.common.ServiceBroker().GetClassInstance("NoInterface"), lumarin::Error);
    EXPECT_THROW(lumarin::RequestService<lumarin::DbInterface>(host.common)
                     ->Execute("OTHER", "SELECT ListNum FROM Listings"),
                 lumarin::Error);
}

TEST(HostVelCommon, SignedInUser_ActsForTheCompanysOffices) {
    const struct {
        int level;
        const char* office;
        const char* managed;
        bool several;
    } cases[] = {{10, "OF1", ",OF1,OF3,'OF1','OF3',", false},
                 {60, "OF1", ",OF1,OF3,'OF1','OF3',", true},
                 {95, "OF4", ",OF2,OF4,'OF2','OF4',", true},
                 {60, "NONE", ",NONE,'NONE',", false}};
    for (const auto& row : cases) {
        TestHost host({.dataFolder = SeededFolder(), .level = row.level, .office = row.office});
        EXPECT_EQ(host.common.ManagedOffices(), row.managed);
        EXPECT_EQ(host.common.HasSeveralOffices(), row.several) << row.level << row.office;
    }
    TestHost host({.dataFolder = SeededFolder()});
    EXPECT_EQ(host.common.PhotoDescriptions().at(0).text, "Front");
}

std::string PhotoVersion(TestHost& host) {
    return host.Keys("SELECT PhotoVersion FROM Photo WHERE PhoListNum = 100123;", "PhotoVersion");
}

TEST(HostVelCommon, FetchPhoto_CopiesWhatIsMissingOrOfAnotherLength) {
    TestHost host({.dataFolder = SeededFolder()});
    const std::string version = PhotoVersion(host);
    const std::string path = host.common.FetchPhoto(100123, 2, version);
    EXPECT_EQ(path, host.common.PhotoFolder() + "2/3/100123b.jpg");
    EXPECT_EQ(std::to_string(files::FileLength(path)), lumarin::text::Split(version, ',').at(1));

    files::WriteWhole(path, "older");
    EXPECT_EQ(host.common.FetchPhoto(100123, 2, ""), path);
    EXPECT_EQ(files::FileLength(path), 5U) << "without a version any photo will do";
    host.common.FetchPhoto(100123, 2, version);
    EXPECT_GT(files::FileLength(path), 5U);
    EXPECT_EQ(host.common.ListingPhotoFolder(7), host.common.PhotoFolder() + "0/7/");

    for (const auto& [listing, number] :
         {std::pair{100123, 4}, {100124, 1}, {100123, 0}, {100123, 27}, {-1, 1}})
        EXPECT_THROW(host.common.FetchPhoto(listing, number, ""), lumarin::Error) << listing << number;
}

TEST(HostVelCommon, FetchPhoto_AfterLookingAhead_StillFetchesWhatIsMissingOrOfAnotherLength) {
    TestHost host({.dataFolder = SeededFolder()});
    const auto fetched = [&](int number) {
        return files::FileLength(host.common.FetchPhoto(100123, number, PhotoVersion(host)));
    };
    const std::uint64_t first = fetched(1), second = fetched(2), third = fetched(3);
    const std::string folder = host.common.ListingPhotoFolder(100123);
    std::filesystem::resize_file(folder + "100123a.jpg", 5);
    files::Delete(folder + "100123b.jpg");
    host.common.ExpectFetches();
    EXPECT_EQ(fetched(1), first);
    EXPECT_EQ(fetched(2), second);
    EXPECT_EQ(fetched(3), third);
    files::Delete(folder + "100123c.jpg");
    EXPECT_EQ(fetched(3), third) << "what was seen ahead answers once";
}

TEST(PhotoService, PackageSentThroughTheServices_IsPublishedOrRefusedWithItsReason) {
    const lumarin::testing::TemporaryFolder folder;
    SeedData(folder.Path());
    TestHost host({.dataFolder = folder.Path()});
    const auto send = [&](const std::string& name, const std::string& bytes) {
        // A service object a call, as a caller that keeps none would do.
        const auto service = [&] { return lumarin::RequestService<lumarin::PhotoInterface>(host.common); };
        service()->UploadPhotoFile(name, lumarin::UploadMode::Begin);
        service()->UploadPhotoFile(std::as_bytes(std::span(bytes)));
        service()->UploadPhotoFile("", lumarin::UploadMode::End);
        return service()->BatchUpdate("VELTRANE", name, lumarin::BatchKind::PhotoPackage);
    };
    const PackageBuilder package =
        PackageBuilder().Listing(100124, {{"2117", ""}}).Entry("100124a.jpg", TinyJpeg(77));
    EXPECT_EQ(send("VELTRANE1A101.zip", package.Bytes()), 0);
    EXPECT_EQ(host.common.LastRefusal(), "");
    EXPECT_EQ(files::ReadAll(host.common.FetchPhoto(100124, 1, "77")), TinyJpeg(77));
    EXPECT_EQ(send("VELTRANE2A101.zip", "no package"), 1);
    EXPECT_NE(host.common.LastRefusal().find("as a zip archive"), std::string::npos);
}

}  // namespace
}  // namespace host
