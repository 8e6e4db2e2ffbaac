#include "host_server/ServerTest.h"

#include "base/Text.h"

namespace host {
namespace {

TEST_F(ServerTest, Apply_NewPhotosThenLetters_PublishReorderKeepAndDrop) {
    GivenThreePhotos();
    EXPECT_EQ(Row(1001), "3|100,200,300|3,2110,2111,2115");
    EXPECT_EQ(Photos(1001), "abc");
    EXPECT_EQ(SpooledFiles(), 0U);
    Apply(PackageBuilder()
              .Listing(1001, {{"2126", "c"}, {"2110", ""}, {"2111", "a"}})
              .Entry("1001b.jpg", TinyJpeg(400, 'n'))
              .Listing(5001, {}));
    EXPECT_EQ(Row(1001), "3|300,400,100|3,2126,2110,2111");
    EXPECT_EQ(Photos(1001), "cna");
    EXPECT_EQ(StoredFiles(1001), 3U) << "the dropped photo's file is gone";
    EXPECT_EQ(Row(5001), "0||");
}

TEST_F(ServerTest, Apply_PackageAppliedBefore_IsAcceptedAndChangesNothing) {
    GivenThreePhotos();
    const PackageBuilder swap = PackageBuilder().Listing(1001, {{"1", "b"}, {"2", "a"}});
    Apply(swap);
    EXPECT_EQ(Photos(1001), "ba");
    Restart();
    Apply(swap);
    EXPECT_EQ(Photos(1001), "ba") << "not swapped back";
    EXPECT_EQ(SpooledFiles(), 0U);
    EXPECT_THROW(server_->ApplyPackage("p.zip"), Refusal) << "no longer there";
    Apply(swap, "another.zip");
    EXPECT_EQ(Photos(1001), "ab");
}

struct BadPackage {
    const char* name;
    std::string bytes;
    const char* reason;
};

std::vector<BadPackage> BadPackages() {
    const std::string jpeg = TinyJpeg(60, 'z');
    const std::string whole = ManifestBytes(1001, {{"2110", ""}});
    const auto manifest = [&](const std::string& bytes) {
        return PackageBuilder().Entry("1001.dat", bytes).Entry("1001a.jpg", jpeg).Bytes();
    };
    const auto photo = [&](const std::string& bytes) {
        return PackageBuilder().Listing(1001, {{"2110", ""}}).Entry("1001a.jpg", bytes).Bytes();
    };
    const auto count = [&](char value) { return whole.substr(0, 4) + value + whole.substr(5); };
    std::string damaged = photo(TinyJpeg(60, 'q'));
    damaged[damaged.find("qqqq") + 2] = 'Q';
    const std::string good = photo(jpeg);
    return {
        {"no archive", "hello", "as a zip archive"},
        {"cut short", good.substr(0, good.size() - 9), "as a zip archive"},
        {"no entries", "PK\5\6" + std::string(18, '\0'), "empty"},
        {"check sum wrong", damaged, "damaged"},
        {"manifest cut short", manifest(whole.substr(0, whole.size() - 1)), "cut short"},
        {"27 photos", manifest(count(27)), "27 photos"},
        {"negative count", manifest(whole.substr(0, 4) + "\xFF\xFF\xFF\xFF" + whole.substr(8)), "-1 photos"},
        {"listing number 0", manifest(ManifestBytes(0, {{"2110", ""}})), "listing number 0"},
        {"another listing's manifest", manifest(ManifestBytes(1002, {{"2110", ""}})), "another listing's"},
        {"letter that is none", manifest(ManifestBytes(1001, {{"2110", "A"}})), "than a letter"},
        {"code with a comma", manifest(ManifestBytes(1001, {{"2110,1", ""}})), "impossible description"},
        {"letter beyond the published", PackageBuilder().Listing(1001, {{"2110", "d"}}).Bytes(),
         "no published photo d"},
        {"unknown listing", PackageBuilder().Listing(1002, {}).Listing(7, {}).Bytes(), "no listing 7"},
        {"photo missing", PackageBuilder().Listing(1001, {{"2110", ""}}).Bytes(),
         "lacks the photo 1001a.jpg"},
        {"photo without manifest", PackageBuilder().Listing(1002, {}).Entry("1001a.jpg", jpeg).Bytes(),
         "No manifest"},
        {"photo not announced", PackageBuilder().Listing(1001, {{"1", "a"}}).Entry("1001a.jpg", jpeg).Bytes(),
         "No manifest"},
        {"folder in name", PackageBuilder().Entry("x/1001.dat", whole).Bytes(), "unknown"},
        {"way out", PackageBuilder().Listing(1002, {}).Entry("../1001a.jpg", jpeg).Bytes(), "unknown"},
        {"entry twice",
         lumarin::text::ReplaceAll(PackageBuilder().Listing(1002, {}).Entry("1003.dat", whole).Bytes(),
                                   "1003.dat", "1002.dat"),
         "already exists"},
        {"no picture", photo("<html>" + jpeg), "not a whole JPEG"},
        {"picture cut short", photo(jpeg.substr(0, jpeg.size() - 2)), "not a whole JPEG"},
        {"huge entry that packs small",
         PackageBuilder()
             .Listing(1001, {{"1", ""}})
             .Entry("1001a.jpg", std::string(PackageReader::LargestEntry + 1, '\0'))
             .Bytes(true),
         "too large"},
        {"second photo bad after a good listing",
         PackageBuilder()
             .Listing(1002, {{"1", ""}})
             .Entry("1002a.jpg", jpeg)
             .Listing(1001, {{"1", ""}, {"2", ""}})
             .Entry("1001a.jpg", jpeg)
             .Entry("1001b.jpg", "no")
             .Bytes(),
         "1001b.jpg is not"},
    };
}

TEST_F(ServerTest, Apply_BadPackage_IsRefusedWholeWithItsReason) {
    GivenThreePhotos();
    for (const BadPackage& bad : BadPackages()) {
        Upload(*server_, "bad.zip", bad.bytes);
        try {
            server_->ApplyPackage("bad.zip");
            ADD_FAILURE() << bad.name << " was applied";
        } catch (const Refusal& refusal) {
            EXPECT_NE(refusal.Description().find(bad.reason), std::string::npos)
                << bad.name << ": " << refusal.what();
        }
        EXPECT_EQ(Row(1001) + Row(1002), "3|100,200,300|3,2110,2111,2115") << bad.name;
        EXPECT_EQ(StoredFiles(1001), 3U) << bad.name;
        EXPECT_EQ(StoredFiles(1002) + SpooledFiles(), 0U) << bad.name;
    }
    EXPECT_NE(lumarin::files::ReadAll(folder_.Path() + "server/server.log").find("refused bad.zip: "),
              std::string::npos);
}

TEST_F(ServerTest, Apply_KilledAtAnyStep_LeavesOldOrNewAndNothingBetween) {
    GivenThreePhotos();
    const std::string bytes = PackageBuilder()
                                  .Listing(1001, {{"1", "b"}, {"2", ""}})
                                  .Entry("1001b.jpg", TinyJpeg(500, 'n'))
                                  .Listing(1002, {{"3", ""}})
                                  .Entry("1002a.jpg", TinyJpeg(600, 'm'))
                                  .Bytes();
    const ApplyStep steps[] = {ApplyStep::PackageChecked, ApplyStep::PhotoWritten, ApplyStep::RowsWritten,
                               ApplyStep::Committed, ApplyStep::OldPhotosDeleted};
    for (const ApplyStep fatal : steps) {
        SCOPED_TRACE(static_cast<int>(fatal));
        KillAt(fatal, [&](Server& doomed) {
            Upload(doomed, "p.zip", bytes);
            doomed.ApplyPackage("p.zip");
        });
        const bool done = fatal >= ApplyStep::Committed;
        EXPECT_EQ(Photos(1001), done ? "bn" : "abc");
        EXPECT_EQ(Row(1001), done ? "2|200,500|2,1,2" : "3|100,200,300|3,2110,2111,2115");
        EXPECT_EQ(Photos(1002), done ? "m" : "");
        EXPECT_EQ(StoredFiles(1001), done ? 2U : 3U) << "no leftovers";
        EXPECT_EQ(StoredFiles(1002), done ? 1U : 0U);
        EXPECT_EQ(SpooledFiles(), 0U);
    }
}

TEST_F(ServerTest, SecondServerOnTheFolder_LeavesTheFirstOnesUploadAlone) {
    server_->Uploads().Begin("p.zip");
    Server second(folder_.Path());
    const std::string bytes =
        PackageBuilder().Listing(1002, {{"1", ""}}).Entry("1002a.jpg", TinyJpeg(80)).Bytes();
    Upload(second, "p.zip", bytes);
    server_->Uploads().Append(std::as_bytes(std::span(std::string_view("abc"))));
    server_->Uploads().End();
    second.ApplyPackage("p.zip");
    EXPECT_EQ(Row(1002), "1|80|1,1");
    EXPECT_THROW(server_->ApplyPackage("p.zip"), Refusal) << "its own three bytes";
}

TEST_F(ServerTest, Uploads_OutOfOrderOrBadlyNamed_AreRefused) {
    const auto chunk = std::as_bytes(std::span(std::string_view("abc")));
    Spool& uploads = server_->Uploads();
    EXPECT_THROW(uploads.Append(chunk), Refusal);
    EXPECT_THROW(uploads.End(), Refusal);
    EXPECT_NO_THROW(uploads.Abort());
    for (const char* name : {"", ".", "..", "a/b", "a\\b", "../x", "a..b", ".hidden", "a\nb", "c:x"})
        EXPECT_THROW(uploads.Begin(name), Refusal) << name;
    EXPECT_THROW(uploads.Begin(std::string(200, 'x')), Refusal);

    uploads.Begin("p.zip");
    EXPECT_THROW(server_->ApplyPackage("p.zip"), Refusal) << "not ended";
    uploads.Append(chunk);
    uploads.Begin("q.zip");
    EXPECT_EQ(SpooledFiles(), 1U) << "a new begin drops the unfinished one";
    uploads.End();
    EXPECT_THROW(uploads.End(), Refusal);
    EXPECT_THROW(uploads.Append(chunk), Refusal);
    EXPECT_EQ(uploads.Finished("p.zip"), "");
    uploads.Abort();
    EXPECT_EQ(SpooledFiles(), 0U) << "an abort after the end drops it too";
}

}  // namespace
}  // namespace host
