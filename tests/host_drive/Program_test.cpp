#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLockFile>
#include <QTemporaryDir>

#include "host/demo/LargePhoto.h"
#include "host_drive/RunProgram.h"

namespace host {

using testing::ProgramRun;
using testing::RunProgram;

namespace {

QString PhotosOnStartPage(const QJsonArray& rows, const QString& listing) {
    for (const QJsonValue& row : rows)
        if (row.toArray()[0] == listing) return row.toArray().last().toString();
    return "not there";
}

}  // namespace

class ProgramTest : public ::testing::Test {
protected:
    ProgramRun Drive(const QStringList& commands, QStringList options = {}) {
        options += {"--data", folder.path(), "--drive", "-"};
        return RunProgram(options, commands.join('\n') + '\n');
    }

    QTemporaryDir folder;
};

TEST_F(ProgramTest, PhotosRoad_FromTheFileToTheServer_EndsInANewWindow) {
    const QString photo = folder.filePath("large photo.jpg");
    DrawLargePhoto(photo.toStdString(), 6000, 4000, 3);
    const QStringList commands = {
        "tool frmMain.Photos",
        "wait frmLumarin",
        "# the listing's three photos come from the server",
        "set frmLumarin.txtID 100123",
        "key frmLumarin.txtID Enter",
        "tool frmLumarin.Open",
        "choose \"" + photo + '"',
        "wait frmPhotoCrop 20000",
        "drag frmPhotoCrop.Preview 150 100 170 90",
        "set frmPhotoCrop.hsbControl(0) 100",
        "press frmPhotoCrop.cmdCapture",
        "get frmLumarin.PhotoList",
        "tool frmLumarin.SendPhotos",
        "message",
        "get frmLumarin.RecList",
        "get frmLumarin.SendPhotos",
        "close frmLumarin",
        "tool frmMain.Photos",
        "wait frmLumarin",
        "set frmLumarin.txtID 100123",
        "press frmLumarin.cmdAdd",
        "get frmLumarin.PhotoList",
        "get frmMain.Listings",
        "quit",
    };
    const ProgramRun run = Drive(commands);
    ASSERT_EQ(run.answers.size(), static_cast<std::size_t>(commands.size() - 1)) << run.errors.toStdString();
    EXPECT_EQ(run.exitCode, 0) << run.output.toStdString();
    const auto rows = [&](std::size_t answer) { return run.answers[answer].toObject()["rows"].toArray(); };
    EXPECT_EQ(rows(10).size(), 4) << "after the capture";
    EXPECT_TRUE(run.answers[12].isNull()) << "the send asks nothing";
    EXPECT_EQ(rows(13).size(), 0) << "the send empties the window";
    EXPECT_FALSE(run.answers[14].toObject()["enabled"].toBool());
    EXPECT_EQ(rows(20).size(), 4) << "the new window";
    EXPECT_EQ(PhotosOnStartPage(rows(21), "100123"), "4");
}

TEST_F(ProgramTest, UnknownListing_ShowsTheMessage_AndBlocksItsWindow) {
    const ProgramRun run = Drive({"wait frmLumarin", "set frmLumarin.txtID 999", "key frmLumarin.txtID Enter",
                                  "message", "press frmLumarin.cmdAdd", "answer OK", "message"},
                                 {"--photos"});
    ASSERT_EQ(run.answers.size(), 7u) << run.errors.toStdString();
    EXPECT_EQ(run.answers[3].toObject()["text"], "999 Is not a valid listing number");
    EXPECT_EQ(run.answers[3].toObject()["title"], "Listing not found");
    EXPECT_TRUE(run.answers[4].toObject().contains("error"));
    EXPECT_TRUE(run.answers[6].isNull());
    EXPECT_EQ(run.exitCode, 1) << "one command could not be done";
}

TEST_F(ProgramTest, PhotoWindow_OpenAndClosed_DisablesAndEnablesItsTool) {
    const ProgramRun run = Drive({"tool frmMain.Photos", "get frmMain.Photos", "get frmMain.Documents",
                                  "close frmLumarin", "get frmMain.Photos", "close frmMain"});
    ASSERT_EQ(run.answers.size(), 6u) << run.errors.toStdString();
    EXPECT_FALSE(run.answers[1].toObject()["enabled"].toBool());
    EXPECT_TRUE(run.answers[2].toObject()["enabled"].toBool());
    EXPECT_TRUE(run.answers[4].toObject()["enabled"].toBool());
    EXPECT_EQ(run.exitCode, 0);
}

TEST_F(ProgramTest, StartPage_ByTheUsersLevel_ShowsTheListingsInReach) {
    const struct {
        const char* level;
        std::vector<std::string> shown, hidden;
    } cases[] = {
        {"59", {"100123", "500010"}, {"100500"}},
        {"60", {"100123"}, {"100500"}},
        {"90", {"100123"}, {}},
        {"100", {"100123", "100500", "500010"}, {}},
    };
    std::size_t before = 0;
    for (const auto& given : cases) {
        const ProgramRun run = Drive({"get frmMain.Listings"}, {"--level", given.level});
        ASSERT_EQ(run.answers.size(), 1u) << run.errors.toStdString();
        const QJsonArray rows = run.answers[0].toObject()["rows"].toArray();
        EXPECT_GT(rows.size(), static_cast<qsizetype>(before)) << "a higher level sees more: " << given.level;
        before = static_cast<std::size_t>(rows.size());
        const QString all = QString(QJsonDocument(rows).toJson());
        for (const std::string& number : given.shown)
            EXPECT_TRUE(all.contains(number.c_str())) << given.level << number;
        for (const std::string& number : given.hidden)
            EXPECT_FALSE(all.contains(number.c_str())) << given.level << number;
    }
}

TEST_F(ProgramTest, UnsentListing_ProgramEnds_IsThereAtTheNextStart) {
    Drive({"wait frmLumarin", "set frmLumarin.txtID 100123", "key frmLumarin.txtID Enter"}, {"--photos"});
    const ProgramRun run = Drive({"wait frmLumarin", "get frmLumarin.RecList"}, {"--photos"});
    ASSERT_EQ(run.answers.size(), 2u) << run.errors.toStdString();
    EXPECT_EQ(run.answers[1].toObject()["rows"].toArray().size(), 1);
}

TEST_F(ProgramTest, DataFolderInUse_SecondStart_IsRefused) {
    ASSERT_TRUE(QDir().mkpath(folder.path()));
    QLockFile lock(folder.filePath("host.lock"));
    ASSERT_TRUE(lock.lock());
    const ProgramRun run = Drive({"quit"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_TRUE(run.errors.contains("is in use by another run")) << run.errors.toStdString();
}

TEST_F(ProgramTest, CommandLine_Mistaken_ExitsWithTwo) {
    const ProgramRun unknown = RunProgram({"--fast"});
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_TRUE(unknown.errors.contains("Unknown option \"--fast\"")) << unknown.errors.toStdString();
    const ProgramRun noScript = RunProgram({"--data", folder.path(), "--drive", folder.filePath("none.txt")});
    EXPECT_EQ(noScript.exitCode, 2);
    EXPECT_TRUE(noScript.errors.contains("none.txt")) << noScript.errors.toStdString();
    EXPECT_EQ(RunProgram({"--help"}).exitCode, 0);
}

}  // namespace host
