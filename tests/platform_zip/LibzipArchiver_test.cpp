#include "platform/zip/LibzipArchiver.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "base/Error.h"
#include "base/Files.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

namespace {

class LibzipArchiver : public ::testing::Test {
protected:
    LibzipArchiver() { files::EnsureFolder(folder + "other/"); }

    std::string GivenFile(const std::string& name, const std::string& bytes) {
        files::WriteWhole(folder + name, bytes);
        return folder + name;
    }
    static std::vector<std::string> NamesIn(const std::string& where) {
        return files::List(where, [](const std::string&) { return true; });
    }

    const testing::TemporaryFolder temporary;
    const std::string folder = temporary.Path();
    zip::LibzipArchiver archiver;
};

TEST_F(LibzipArchiver, Files_FromSeveralFolders_AreStoredByPlainName) {
    const std::string photo(70'000, '\xA5'), unpacked = folder + "unpacked/";
    const std::string archive = GivenFile("DB12345A101.zip", "an older archive that is no zip");
    archiver.Create(archive, {GivenFile("100123a.jpg", photo), GivenFile("other/100123.dat", "a;1\r\n"),
                              GivenFile("other/empty [1].jpg", "")});
    EXPECT_EQ(NamesIn(folder), (std::vector<std::string>{"100123a.jpg", "DB12345A101.zip"}));
    EXPECT_GT(files::FileLength(archive), photo.size()) << "compressed";

    ASSERT_EQ(std::system(("unzip -q '" + archive + "' -d " + unpacked).c_str()), 0);
    EXPECT_EQ(NamesIn(unpacked), (std::vector<std::string>{"100123.dat", "100123a.jpg", "empty [1].jpg"}));
    EXPECT_EQ(files::ReadAll(unpacked + "100123a.jpg"), photo);
    EXPECT_EQ(files::ReadAll(unpacked + "100123.dat"), "a;1\r\n");
    EXPECT_EQ(files::ReadAll(unpacked + "empty [1].jpg"), "");
}

TEST_F(LibzipArchiver, Failure_OfAnyKind_NamesTheFileAndLeavesNothing) {
    const std::string photo = GivenFile("100123a.jpg", "photo");
    const std::string sameName = GivenFile("other/100123a.jpg", "another photo");
    for (const std::string& blamed : {folder + "missing.jpg", folder + "other", sameName}) {
        const std::string archive = GivenFile("a.zip", "older");
        try {
            archiver.Create(archive, {photo, blamed});
            ADD_FAILURE() << blamed << " was packaged";
        } catch (const Error& error) {
            EXPECT_NE(error.Description().find(blamed), std::string::npos) << error.Description();
        }
        EXPECT_EQ(NamesIn(folder), std::vector<std::string>{"100123a.jpg"});
    }
}

}  // namespace

}  // namespace lumarin
