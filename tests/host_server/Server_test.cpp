#include "host_server/ServerTest.h"

namespace host {

TEST_F(ServerTest, Apply_NewPhotosThenLetters_PublishReorderKeepAndDrop) {
    GivenThreePhotos();
    EXPECT_EQ(Row(1001), "3|100,200,300|3,2110,2111,2115");
    EXPECT_EQ(Photos(1001), "abc");
    EXPECT_EQ(SpooledFiles(), 0U);
    const std::string manifest = ManifestBytes(1001, {{"2126", "c"}, {"2110", ""}, {"2111", "a"}});
    Apply(PackageBuilder()
              .Entry("1001.dat", manifest + "old bytes of a longer state")
              .Entry("1001b.jpg", TinyJpeg(400, 'n') + "what a camera adds")
              .Listing(5001, {}));
    EXPECT_EQ(Row(1001), "3|300,418,100|3,2126,2110,2111");
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
    Apply(swap, "another.zip");
    EXPECT_EQ(Photos(1001), "ab");
}

TEST_F(ServerTest, Apply_BadPackage_IsRefusedWholeWithItsReason) {
    const std::string jpeg = TinyJpeg(60, 'z'), whole = ManifestBytes(1001, {{"2110", ""}});
    const auto manifest = [&](const std::string& bytes) {
        return PackageBuilder().Entry("1001.dat", bytes).Entry("1001a.jpg", jpeg).Bytes();
    };
    // A good listing comes first.
    const PackageBuilder good = PackageBuilder().Listing(1002, {{"1", ""}}).Entry("1002a.jpg", jpeg);
    const auto photo = [&](const std::string& bytes, bool compressed = false) {
        return PackageBuilder(good).Listing(1001, {{"2110", ""}}).Entry("1001a.jpg", bytes).Bytes(compressed);
    };
    const auto count = [&](const std::string& number) {
        return whole.substr(0, 4) + number + whole.substr(8);
    };
    std::string damaged = photo(TinyJpeg(60, 'q'));
    damaged[damaged.find("qqqq") + 2] = 'Q';
    const std::tuple<const char*, std::string, const char*> cases[] = {
        {"no archive", "hello", "as a zip archive"},
        {"no entries", "PK\5\6" + std::string(18, '\0'), "empty"},
        {"check sum wrong", damaged, "damaged"},
        {"manifest cut short", manifest(whole.substr(0, whole.size() - 1)), "cut short"},
        {"27 photos", manifest(count({27, 0, 0, 0})), "27 photos"},
        {"negative count", manifest(count("\xFF\xFF\xFF\xFF")), "-1 photos"},
        {"another listing's manifest", manifest(ManifestBytes(1002, {{"2110", ""}})), "another listing's"},
        {"letter that is none", manifest(ManifestBytes(1001, {{"2110", "A"}})), "than a letter"},
        {"code with a comma", manifest(ManifestBytes(1001, {{"2110,1", ""}})), "impossible description"},
        {"letter beyond the published", PackageBuilder(good).Listing(1001, {{"1", "d"}}).Bytes(),
         "no published"},
        {"unknown listing", PackageBuilder(good).Listing(7, {}).Bytes(), "no listing 7"},
        {"photo missing", PackageBuilder().Listing(1001, {{"1", ""}}).Bytes(), "lacks the photo 1001a.jpg"},
        {"photo not announced", PackageBuilder(good).Entry("1001a.jpg", jpeg).Bytes(), "No manifest"},
        {"way out", PackageBuilder(good).Entry("../1001a.jpg", jpeg).Bytes(), "unknown"},
        {"other way out", PackageBuilder(good).Entry("..\\1001a.jpg", jpeg).Bytes(), "unknown"},
        {"capital letter", PackageBuilder(good).Entry("1001A.jpg", jpeg).Bytes(), "unknown"},
        {"no picture", photo("<html>" + jpeg), "not a whole JPEG"},
        {"nothing between start and end", photo("\xFF\xD8\xFF\xD9"), "not a whole JPEG"},
        {"picture cut short", photo(jpeg.substr(0, jpeg.size() - 2)), "not a whole JPEG"},
        {"segment longer than the file", photo({"\xFF\xD8\xFF\xE1\xFF\xFF\xFF\xD9", 8}), "not a whole JPEG"},
        {"end only within a segment",
         photo(std::string("\xFF\xD8\xFF\xE1\x00\x06\xFF\xD8\xFF\xD9", 10) + jpeg.substr(2, 20)),
         "not a whole JPEG"},
        {"huge when unpacked", photo(std::string(PackageReader::LargestEntry + 1, 'x'), true), "too large"},
    };
    GivenThreePhotos();
    for (const auto& [name, bytes, said] : cases) {
        Upload(*server_, "bad.zip", bytes);
        const std::string reason = ReasonOf([&] { server_->ApplyPackage("bad.zip"); });
        EXPECT_TRUE(Says(reason, said)) << name << ": " << reason;
        EXPECT_EQ(Row(1001) + Row(1002), "3|100,200,300|3,2110,2111,2115") << name;
        EXPECT_EQ(StoredFiles(1001), 3U) << name;
        EXPECT_EQ(StoredFiles(1002) + SpooledFiles(), 0U) << name;
    }
}

TEST_F(ServerTest, SecondServerOnTheFolder_LeavesTheFirstOnesUploadAlone) {
    server_->Uploads().Begin("p.zip");
    Server second(folder_.Path());
    Upload(second, "p.zip", PackageBuilder().Listing(1002, {}).Bytes());
    second.ApplyPackage("p.zip");
    EXPECT_EQ(Row(1002), "0||");
    EXPECT_EQ(SpooledFiles(), 1U);
}

TEST_F(ServerTest, Uploads_OutOfOrderOrBadlyNamed_AreRefused) {
    Spool& uploads = server_->Uploads();
    const auto expectNoneOpen = [&] {
        EXPECT_THROW(uploads.Append({}), Refusal);
        EXPECT_THROW(uploads.End(), Refusal);
    };
    expectNoneOpen();
    for (const char* name : {"", ".", "..", "a/b", "a\\b", "../x", "a..b", ".hidden", "a\nb", "c:x"})
        EXPECT_THROW(uploads.Begin(name), Refusal) << name;
    EXPECT_THROW(uploads.Begin(std::string(200, 'x')), Refusal);

    uploads.Begin("p.zip");
    EXPECT_THROW(server_->ApplyPackage("p.zip"), Refusal) << "not ended";
    uploads.Begin("q.zip");
    EXPECT_EQ(SpooledFiles(), 1U) << "a new begin drops the unfinished one";
    uploads.End();
    expectNoneOpen();
    uploads.Abort();
    EXPECT_EQ(SpooledFiles(), 0U) << "an abort after the end drops it too";
}

}  // namespace host
