#include "platform/zip/LibzipArchiver.h"

#include <gtest/gtest.h>
#include <unistd.h>
#include <zip.h>

#include <cstdlib>
#include <filesystem>
#include <map>

#include "base/Error.h"
#include "base/Files.h"

namespace lumarin {

namespace {

class LibzipArchiver : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "package-XXXXXX").string();
        folder = std::string(mkdtemp(pattern.data())) + "/";
        files::EnsureFolder(folder + "other/");
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    std::string GivenFile(const std::string& name, const std::string& bytes) {
        files::WriteWhole(folder + name, bytes);
        return folder + name;
    }
    std::vector<std::string> NamesIn(const std::string& where) {
        return files::List(where, [](const std::string&) { return true; });
    }

    std::string folder;
    zip::LibzipArchiver archiver;
};

/// Contents by entry name; fails the test for an entry that is compressed.
std::map<std::string, std::string> Unpacked(const std::string& path) {
    std::map<std::string, std::string> contents;
    zip_t* archive = zip_open(path.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, nullptr);
    for (zip_int64_t i = 0; archive != nullptr && i < zip_get_num_entries(archive, 0); ++i) {
        zip_stat_t entry;
        EXPECT_EQ(zip_stat_index(archive, static_cast<zip_uint64_t>(i), 0, &entry), 0);
        EXPECT_EQ(entry.comp_method, ZIP_CM_STORE);
        std::string bytes(entry.size, '\0');
        zip_file_t* file = zip_fopen_index(archive, static_cast<zip_uint64_t>(i), 0);
        EXPECT_EQ(zip_fread(file, bytes.data(), bytes.size()), static_cast<zip_int64_t>(bytes.size()));
        zip_fclose(file);
        contents[entry.name] = bytes;
    }
    if (archive != nullptr) zip_discard(archive);
    return contents;
}

TEST_F(LibzipArchiver, Files_FromSeveralFolders_AreStoredByPlainName) {
    const std::string photo(70'000, '\xA5');
    const std::string archive = GivenFile("DB12345A101.zip", "an older archive that is no zip");
    archiver.Create(archive, {GivenFile("100123a.jpg", photo), GivenFile("other/100123.dat", "a;1\r\n"),
                              GivenFile("other/empty [1].jpg", "")});

    const std::map<std::string, std::string> expected = {
        {"100123a.jpg", photo}, {"100123.dat", "a;1\r\n"}, {"empty [1].jpg", ""}};
    EXPECT_EQ(Unpacked(archive), expected);
    EXPECT_EQ(std::system(("unzip -tqq '" + archive + "' >/dev/null 2>&1").c_str()), 0);
    EXPECT_EQ(NamesIn(folder), (std::vector<std::string>{"100123a.jpg", "DB12345A101.zip"}));
}

TEST_F(LibzipArchiver, Failure_OfAnyKind_NamesTheFileAndLeavesNothing) {
    const std::string photo = GivenFile("100123a.jpg", "photo");
    const std::string sameName = GivenFile("other/100123a.jpg", "another photo");
    const struct {
        const char* name;
        std::string archive;
        std::vector<std::string> paths;
        std::string blamed;
    } cases[] = {
        {"missing file", folder + "a.zip", {photo, folder + "100123b.jpg"}, "100123b.jpg"},
        {"a folder", folder + "a.zip", {photo, folder + "other"}, "other"},
        {"same plain name", folder + "a.zip", {photo, sameName}, sameName},
        {"no such folder", folder + "missing/a.zip", {photo}, "missing/a.zip"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        if (row.archive == folder + "a.zip") GivenFile("a.zip", "older");
        try {
            archiver.Create(row.archive, row.paths);
            ADD_FAILURE() << "was packaged";
        } catch (const Error& error) {
            EXPECT_NE(error.Description().find(row.blamed), std::string::npos) << error.Description();
        }
        EXPECT_EQ(NamesIn(folder), std::vector<std::string>{"100123a.jpg"});
    }
}

}  // namespace

}  // namespace lumarin
