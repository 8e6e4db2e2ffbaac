#include "platform/windows/WindowsFiles.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "base/FileSystem.h"
#include "base/PutBack.h"
#include "support/Reason.h"
#include "support/TemporaryFolder.h"

namespace lumarin {

using testing::ReasonOf, testing::Says;

class WindowsFiles : public ::testing::Test {
protected:
    WindowsFiles() { files::Use(&calls); }
    ~WindowsFiles() override { files::Use(nullptr); }
    std::string ReasonOfHeld() const {
        return calls.ReasonOf({ERROR_SHARING_VIOLATION, std::system_category()});
    }

    const windows::WindowsFiles calls;
    const testing::TemporaryFolder folder;
};

/// Another program reads the file, and lets others do what `share` says.
TEST_F(WindowsFiles, Change_FileIsHeld_WorksOrSaysSoAndLosesNothing) {
    constexpr DWORD Nothing = 0, Read = FILE_SHARE_READ, Write = FILE_SHARE_WRITE, Delete = FILE_SHARE_DELETE;
    const std::string file = folder.Path() + "100123.dat", other = folder.Path() + "other";
    const std::tuple<const char*, std::function<void()>, DWORD> cases[] = {
        {"read", [&] { files::ReadAll(file); }, Read},
        {"write", [&] { files::WriteWhole(file, "new"); }, Read | Write | Delete},
        {"copy", [&] { files::Copy(other, file); }, Read | Write | Delete},
        {"rename", [&] { files::Rename(file, folder.Path() + "away"); }, Read | Delete},
        {"delete", [&] { files::Delete(file); }, Read | Delete},
    };
    for (const auto& [name, change, needs] : cases)
        for (const DWORD share : {Nothing, Read | Write, Read | Write | Delete}) {
            SCOPED_TRACE(std::string(name) + ", shared " + std::to_string(share));
            files::WriteWhole(file, "old");
            files::WriteWhole(other, "new");
            const HANDLE held = CreateFileW(files::ToPath(file).c_str(), GENERIC_READ, share, nullptr,
                                            OPEN_EXISTING, 0, nullptr);
            const std::string reason = ReasonOf(change);
            CloseHandle(held);
            if ((share & needs) == needs) {
                EXPECT_EQ(reason, "done");
            } else {
                EXPECT_TRUE(Says(reason, file) && Says(reason, ReasonOfHeld())) << reason;
                EXPECT_EQ(files::ReadAll(file), "old");
            }
            EXPECT_FALSE(files::FileExists(files::UnfinishedName(file)));
        }
}

TEST_F(WindowsFiles, EveryCall_LongPathsAndLettersOfAllKinds_WorksAsElsewhere) {
    const std::string names[] = {"é中", std::string(60, 'd')};
    for (const std::string& name : names) {
        std::string deep = folder.Path();
        for (int i = 0; i < 6; ++i) deep += name + "\\";
        SCOPED_TRACE(deep);
        const std::string file = deep + "Ж.txt", copy = deep + "copy";
        EXPECT_FALSE(files::FolderExists(deep) || files::HasEntries(deep));
        files::EnsureFolder(deep);
        files::WriteWhole(file, "old");
        files::WriteWhole(file, "bytes");
        files::Copy(file, copy);
        files::Copy(file, copy);
        files::Rename(copy, copy + "2");
        EXPECT_EQ(files::List(deep, [](const std::string&) { return true; }),
                  (std::vector<std::string>{"copy2", "Ж.txt"}));
        files::Delete(copy + "2");
        EXPECT_EQ(ReasonOf([&] { files::Delete(copy + "2"); }).find("Cannot delete"), 0U);
        EXPECT_EQ(files::Reader(file).Read(9), "bytes");
        EXPECT_EQ(files::FileLength(file), 5U);
        EXPECT_TRUE(files::HasEntries(deep));
    }
    EXPECT_FALSE(files::FileExists(folder.Path() + "\xE9"));  // not UTF-8
}

TEST_F(WindowsFiles, ToPath_LongOrNot_TakesTheFormThatTheSystemTakes) {
    const std::string usual(60, 'd'), tooLong(230, 'd');
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"C:/a/../b/" + usual, "C:/a/../b/" + usual, "C:\\b\\" + usual},
        {"C:/a/../b//" + tooLong, "\\\\?\\C:\\b\\" + tooLong, "C:\\b\\" + tooLong},
        {"\\\\server\\share\\..\\x/" + usual, "\\\\server\\share\\..\\x/" + usual, "\\\\server\\x\\" + usual},
        {"\\\\server\\share\\.\\" + tooLong, "\\\\?\\UNC\\server\\share\\" + tooLong,
         "\\\\server\\share\\" + tooLong},
        {"\\\\?\\C:\\" + tooLong, "\\\\?\\C:\\" + tooLong, "\\\\?\\C:\\" + tooLong},
    };
    for (const auto& [path, form, whole] : cases) {
        EXPECT_EQ(files::LibraryPath(path), form);
        EXPECT_EQ(files::Absolute(path), whole);
    }
}

TEST_F(WindowsFiles, Change_ReadOnlyFile_IsReplacedAndDeletedAsElsewhere) {
    const std::string file = folder.Path() + "100123a.jpg", copy = folder.Path() + "copy";
    const auto mark = [&] {
        ASSERT_TRUE(SetFileAttributesW(files::ToPath(file).c_str(), FILE_ATTRIBUTE_READONLY));
    };
    files::WriteWhole(file, "1");
    mark();
    files::Copy(file, copy);
    files::Delete(copy);
    files::WriteWhole(file, "2");
    mark();
    files::Rename(file, copy);
    EXPECT_EQ(files::ReadAll(copy), "2");
    EXPECT_TRUE(files::TryDelete(copy) && !files::FileExists(copy));
}

}  // namespace lumarin
