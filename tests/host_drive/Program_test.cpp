// The program itself, started with a script on its standard input.
#include <gtest/gtest.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QProcess>
#include <QTemporaryDir>

namespace host {

namespace {

constexpr int Patience = 120000;

/// What a run of the host program left behind.
struct ProgramRun {
    int exitCode = -1;
    QJsonArray answers;  ///< one a line of standard output
    std::string errors;
};

ProgramRun RunProgram(const QStringList& arguments, const QString& script = {}) {
    QProcess process;
    process.start(HOST_PROGRAM, arguments);
    process.write(script.toUtf8());
    process.closeWriteChannel();
    ProgramRun run;
    if (process.waitForFinished(Patience) && process.exitStatus() == QProcess::NormalExit)
        run.exitCode = process.exitCode();
    const QByteArray lines = process.readAllStandardOutput().trimmed().replace('\n', ',');
    run.answers = QJsonDocument::fromJson('[' + lines + ']').array();
    run.errors = process.readAllStandardError().toStdString();
    return run;
}

}  // namespace

/// Runs the program on a data folder of its own.
class ProgramTest : public ::testing::Test {
protected:
    ProgramRun Drive(const QStringList& commands, QStringList options = {}) const {
        options += {"--data", folder.filePath("data"), "--drive", "-"};
        return RunProgram(options, commands.join('\n') + '\n');
    }

    QTemporaryDir folder;
};

TEST_F(ProgramTest, PhotosSentAndWindowClosed_StartPageAndToolFollow) {
    const ProgramRun run =
        Drive({"tool frmMain.Photos", "get frmMain.Photos", "get frmMain.Documents",
               "# the listing's three photos come from the server", "set frmLumarin.txtID 100123",
               "key frmLumarin.txtID Enter", "select frmLumarin.PhotoList 0", "tool frmLumarin.DeletePhoto",
               "tool frmLumarin.SendPhotos", "message", "get frmLumarin.SendPhotos", "get frmMain.Listings",
               "close frmLumarin", "get frmMain.Photos", "quit"});
    ASSERT_EQ(run.answers.size(), 14) << run.errors;
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.answers[1]["enabled"], false);
    EXPECT_EQ(run.answers[2]["enabled"], true);
    EXPECT_TRUE(run.answers[8].isNull()) << "the send asks nothing";
    EXPECT_EQ(run.answers[9]["enabled"], false);
    EXPECT_TRUE(run.answers[10]["rows"].toArray().contains(
        QJsonArray{"100123", "Sale", "1420 N Oak Street", "A101", "Active", "2"}));
    EXPECT_EQ(run.answers[12]["enabled"], true);
}

TEST_F(ProgramTest, SendFile_Failed_IsAskedForAgainWithItsEntries) {
    const ProgramRun run =
        Drive({"tool frmMain.SendFile", "set dlgSendFile.txtServer localhost:1", "press dlgSendFile.cmdAdd",
               "choose " HOST_PROGRAM, "press dlgSendFile.cmdSend", "wait messageBox", "answer Cancel",
               "wait dlgSendFile", "get dlgSendFile.txtServer", "get dlgSendFile.lstFiles", "quit"});
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_EQ(run.answers[8]["text"], "localhost:1");
    EXPECT_EQ(run.answers[9]["rows"].toArray().size(), 1);
}

TEST_F(ProgramTest, StartPage_ByUserAndLevel_ShowsTheListingsInReach) {
    const std::pair<QStringList, qsizetype> cases[] = {
        {{"--level", "59"}, 11},
        {{"--level=60"}, 21},
        {{"--level", "90"}, 28},
        {{"--level", "100"}, 40},
        {{"--agent", "A202"}, 4},
        {{"--level", "60", "--office", "OF2"}, 7},
        {{"--level", "90", "--board", "2"}, 12},
    };
    for (const auto& [user, listings] : cases) {
        const ProgramRun run = Drive({"get frmMain.Listings"}, user);
        EXPECT_EQ(run.answers[0]["rows"].toArray().size(), listings) << user.join(' ').toStdString();
    }
}

TEST_F(ProgramTest, DataFolderInUse_SecondStart_IsRefused) {
    ASSERT_TRUE(QDir().mkpath(folder.filePath("data")));
    QLockFile lock(folder.filePath("data/host.lock"));
    ASSERT_TRUE(lock.lock());
    const ProgramRun run = Drive({"quit"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_NE(run.errors.find("is in use by another run"), std::string::npos) << run.errors;
}

TEST_F(ProgramTest, ExitCode_TellsHowItWent) {
    EXPECT_EQ(Drive({"wait frmListnumPrompt"}, {"--documents"}).exitCode, 0);
    EXPECT_EQ(Drive({"fly"}).exitCode, 1);
    EXPECT_EQ(Drive({}, {"--fast"}).exitCode, 2);
    const QString data = folder.filePath("data");
    EXPECT_EQ(RunProgram({"--data", data, "--drive", folder.filePath("none.txt")}).exitCode, 2);
    EXPECT_EQ(RunProgram({"--help"}).exitCode, 0);
}

}  // namespace host
