#include <QDir>
#include <QLockFile>

#include "host/demo/LargePhoto.h"
#include "host_drive/RunProgram.h"

namespace host {

using testing::ProgramRun;
using testing::ProgramTest;
using testing::RunProgram;

namespace {

QString PhotosOnStartPage(const QJsonArray& rows, const QString& listing) {
    for (const QJsonValue& row : rows)
        if (row.toArray()[0] == listing) return row.toArray().last().toString();
    return "not there";
}

}  // namespace

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
    EXPECT_EQ(run.Rows(10).size(), 4) << "after the capture";
    EXPECT_TRUE(run.answers[12].isNull()) << "the send asks nothing";
    EXPECT_EQ(run.Rows(13).size(), 0) << "the send empties the window";
    EXPECT_FALSE(run.IsEnabled(14));
    EXPECT_EQ(run.Rows(20).size(), 4) << "the new window";
    EXPECT_EQ(PhotosOnStartPage(run.Rows(21), "100123"), "4");
}

TEST_F(ProgramTest, UnknownListing_ShowsTheMessage_AndBlocksItsWindow) {
    const ProgramRun run = Drive({"wait frmLumarin", "set frmLumarin.txtID 999", "key frmLumarin.txtID Enter",
                                  "message", "press frmLumarin.cmdAdd", "answer OK", "message"},
                                 {"--photos"});
    ASSERT_EQ(run.answers.size(), 7u) << run.errors.toStdString();
    EXPECT_EQ(run.Text(3), "999 Is not a valid listing number");
    EXPECT_EQ(run.answers[3]["title"], "Listing not found");
    EXPECT_TRUE(run.answers[4].toObject().contains("error"));
    EXPECT_TRUE(run.answers[6].isNull());
    EXPECT_EQ(run.exitCode, 1) << "one command could not be done";
}

TEST_F(ProgramTest, PhotoWindow_OpenAndClosed_DisablesAndEnablesItsTool) {
    const ProgramRun run = Drive({"tool frmMain.Photos", "get frmMain.Photos", "get frmMain.Documents",
                                  "close frmLumarin", "get frmMain.Photos", "close frmMain"});
    ASSERT_EQ(run.answers.size(), 6u) << run.errors.toStdString();
    EXPECT_FALSE(run.IsEnabled(1));
    EXPECT_TRUE(run.IsEnabled(2));
    EXPECT_TRUE(run.IsEnabled(4));
    EXPECT_EQ(run.exitCode, 0);
}

TEST_F(ProgramTest, StartPage_ByTheUsersLevel_ShowsTheListingsInReach) {
    const struct {
        const char* level;
        const char* shown;  ///< of the agent's own, the rental and another board's
    } cases[] = {{"59", "100123 500010 "},
                 {"60", "100123 500010 "},
                 {"90", "100123 500010 100500 "},
                 {"100", "100123 500010 100500 "}};
    qsizetype before = 0;
    for (const auto& given : cases) {
        const ProgramRun run = Drive({"get frmMain.Listings"}, {"--level", given.level});
        ASSERT_EQ(run.answers.size(), 1u) << run.errors.toStdString();
        const QJsonArray rows = run.Rows(0);
        EXPECT_GT(rows.size(), before) << "a higher level sees more: " << given.level;
        before = rows.size();
        std::string shown;
        for (const char* number : {"100123", "500010", "100500"})
            if (PhotosOnStartPage(rows, number) != "not there") shown += std::string(number) + " ";
        EXPECT_EQ(shown, given.shown) << given.level;
    }
}

TEST_F(ProgramTest, DataFolderInUse_SecondStart_IsRefused) {
    ASSERT_TRUE(QDir().mkpath(folder.filePath("data")));
    QLockFile lock(folder.filePath("data/host.lock"));
    ASSERT_TRUE(lock.lock());
    const ProgramRun run = Drive({"quit"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_TRUE(run.errors.contains("is in use by another run")) << run.errors.toStdString();
}

TEST_F(ProgramTest, CommandLine_Mistaken_ExitsWithTwo) {
    const ProgramRun unknown = RunProgram({"--fast"});
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_TRUE(unknown.errors.contains("Unknown option \"--fast\"")) << unknown.errors.toStdString();
    const ProgramRun noScript =
        RunProgram({"--data", folder.filePath("data"), "--drive", folder.filePath("none.txt")});
    EXPECT_EQ(noScript.exitCode, 2);
    EXPECT_TRUE(noScript.errors.contains("none.txt")) << noScript.errors.toStdString();
    EXPECT_EQ(RunProgram({"--help"}).exitCode, 0);
}

}  // namespace host
