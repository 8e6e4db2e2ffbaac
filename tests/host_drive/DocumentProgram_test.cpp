#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include "base/Files.h"
#include "host/database/Schema.h"
#include "host/demo/SamplePdf.h"
#include "host/server/Server.h"
#include "host_drive/RunProgram.h"

namespace host {

using testing::ProgramRun;
using testing::RunProgram;

namespace {

constexpr std::size_t Largest = 1000 * 1024;

std::string Output(const QString& program, const QStringList& arguments, int& exitCode) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(30000);
    exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return process.readAllStandardOutput().toStdString();
}

/// "width x height colours bits" of each picture in a PDF file, as another program sees it.
QStringList PicturesIn(const std::string& pdf) {
    int exitCode = -1;
    QStringList found;
    const QString list = QString::fromStdString(Output("pdfimages", {"-list", pdf.c_str()}, exitCode));
    for (const QString& line : list.split('\n', Qt::SkipEmptyParts).mid(2)) {
        const QStringList cells = line.simplified().split(' ');
        found += cells.mid(3, 3).join(' ') + ' ' + cells.value(7);
    }
    return found;
}

}  // namespace

/// An agent's work with the documents of listing 100124, which has none at first.
class DocumentProgramTest : public ::testing::Test {
protected:
    DocumentProgramTest() {
        // The scanner library's test device, for this data folder only.
        Write("data/scanner/dll.conf", "test\n");
        Write("data/scanner/test.conf", "number_of_devices 1\ntest-picture \"Color pattern\"\nmode Color\n");
    }

    void Write(const QString& name, const std::string& bytes) const {
        QDir(folder.path()).mkpath(QFileInfo(name).path());
        lumarin::files::WriteWhole(Path(name), bytes);
    }
    std::string Path(const QString& name) const { return folder.filePath(name).toStdString(); }

    ProgramRun Drive(const QStringList& commands) {
        const QStringList opening = {"wait frmListnumPrompt", "set frmListnumPrompt.txtPropertyId 100124",
                                     "press frmListnumPrompt.cmdOK", "wait frmAddDocument"};
        return RunProgram({"--documents", "--data", folder.filePath("data"), "--drive", "-"},
                          (opening + commands).join('\n') + '\n');
    }
    /// The commands that add a file, up to the message about it or the list with it.
    QStringList Adding(const QString& name) const {
        return {"tool frmAddDocument.miAddExistingFile", "choose " + folder.filePath(name)};
    }
    /// Path of the listing's one document file of this description, as the server keeps it.
    std::string Stored(const std::string& description) const {
        const std::string data = Path("data") + "/";
        Database database(DatabasePath(data), DatabaseUse::Queries);
        Statement row(database, "SELECT DocID FROM Documents WHERE DocListNum = 100124 AND DocDesc = ?");
        if (!row.Bind(1, description).Step()) return "no such document";
        return DocumentStore(Server::DocumentFolder(data), Server::UsualUserCode)
            .Path(100124, row.Integer(0));
    }
    static std::string Text(const QJsonValue& state) {
        return state.toObject()["text"].toString().toStdString();
    }

    QTemporaryDir folder;
};

TEST_F(DocumentProgramTest, FilesAndLinks_GoToTheServerAsTheyAreOrNotAtAll) {
    const std::string largest = SamplePdf().AddText("Largest", {}).BytesOf(Largest);
    Write("largest.v2.pdf", largest);
    Write("more.pdf", SamplePdf().AddText("More", {}).BytesOf(Largest + 1));
    Write("five.pdf", "%PDF-");
    Write("web.pdf", "<html>no document</html>");
    const ProgramRun run =
        Drive(Adding("more.pdf") + QStringList{"message", "answer OK"} + Adding("five.pdf") +
              QStringList{"message", "answer OK"} + Adding("web.pdf") + QStringList{"message", "answer OK"} +
              Adding("largest.v2.pdf") +
              QStringList{"get frmPromptLinkText.txtLinkText", "press frmPromptLinkText.cmdOK",
                          "tool frmAddDocument.miAddUrl", "set frmPromptLinkText.txtLinkText \"Town | plan\"",
                          "set frmPromptLinkText.txtUrl www.example.org/a|b", "press frmPromptLinkText.cmdOK",
                          "message", "get frmAddDocument.lvFiles", "select frmAddDocument.lvFiles 0",
                          "press frmAddDocument.cmdPreview", "select frmAddDocument.lvFiles 1",
                          "key frmAddDocument.lvFiles Enter", "browser"});
    ASSERT_EQ(run.answers.size(), 31u) << run.output.toStdString();
    EXPECT_EQ(run.exitCode, 0) << run.output.toStdString();
    EXPECT_EQ(Text(run.answers[6]), "File is too large!\nFilesize of 2MB exceeds maximum allowed (1MB)");
    EXPECT_EQ(Text(run.answers[10]), "File must be in PDF format");
    EXPECT_EQ(Text(run.answers[14]), "File must be in PDF format");
    EXPECT_EQ(Text(run.answers[18]), "largest.v2");
    EXPECT_TRUE(run.answers[24].isNull());
    const QJsonArray rows = run.answers[25].toObject()["rows"].toArray();
    EXPECT_EQ(rows, QJsonArray({QJsonArray({"largest.v2", "1MB"}),
                                QJsonArray({QStringLiteral("Town \u00A6 plan"), "www.example.org/a%7Cb"})}));
    EXPECT_EQ(lumarin::files::ReadAll(Stored("largest.v2")), largest);
    const QJsonArray opened = run.answers[30].toObject()["opened"].toArray();
    ASSERT_EQ(opened.size(), 2);
    EXPECT_TRUE(opened[0].toString().endsWith("/VELTRANE/Docs/2/4/" +
                                              QFileInfo(Stored("largest.v2").c_str()).fileName()));
    EXPECT_EQ(opened[1], "http://www.example.org/a%7Cb");
}

TEST_F(DocumentProgramTest, BuiltAndScannedPages_AreValidPdfsOnTheServer_AndDeletedWithTheirRows) {
    const QImage plain = [] {
        QImage image(1600, 1000, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        return image;
    }();
    plain.save(folder.filePath("a.jpg"));
    plain.scaled(600, 800).save(folder.filePath("b.png"));
    const ProgramRun run = Drive(
        {"tool frmAddDocument.miMakePdf", "press frmMakePDF.cmdAddFiles",
         "choose " + folder.filePath("a.jpg") + ' ' + folder.filePath("b.png"),
         "clipboard " + folder.filePath("b.png"), "tool frmMakePDF.paste", "get frmMakePDF.lbmBM",
         "set frmMakePDF.txtLinkText Built", "press frmMakePDF.cmdOK", "tool frmAddDocument.miMakePdf",
         "set frmMakePDF.cboDocType \"Black & White 1-bit (Smallest file)\"", "tool frmMakePDF.AcquireSingle",
         "set frmMakePDF.txtLinkText Scanned", "press frmMakePDF.cmdOK", "get frmAddDocument.lvFiles"});
    ASSERT_EQ(run.exitCode, 0) << run.output.toStdString() << run.errors.toStdString();
    EXPECT_EQ(run.answers[9].toObject()["rows"].toArray().size(), 3);
    const QJsonArray rows = run.answers[17].toObject()["rows"].toArray();
    ASSERT_EQ(rows.size(), 2) << run.output.toStdString();
    EXPECT_EQ(PicturesIn(Stored("Built")), QStringList({"1275 797 rgb 8", "600 800 rgb 8", "600 800 rgb 8"}));
    EXPECT_EQ(PicturesIn(Stored("Scanned")).filter(" gray 1").size(), 1);
    for (const char* description : {"Built", "Scanned"}) {
        int exitCode = -1;
        EXPECT_NE(Output("qpdf", {"--check", Stored(description).c_str()}, exitCode).find("No syntax"),
                  std::string::npos);
        EXPECT_EQ(exitCode, 0) << description;
    }
    for (int row = 0; row < 2; ++row) {
        const QJsonArray cells = rows[row].toArray();
        const auto bytes = lumarin::files::FileLength(Stored(cells[0].toString().toStdString()));
        EXPECT_EQ(cells[1], QString("%1KB").arg((bytes + 1023) / 1024));
    }
    const std::string built = Stored("Built");
    const ProgramRun deletion = Drive({"select frmAddDocument.lvFiles 0", "key frmAddDocument.lvFiles Delete",
                                       "answer Yes", "message", "get frmAddDocument.lvFiles"});
    EXPECT_EQ(deletion.answers.back().toObject()["rows"].toArray().size(), 1);
    EXPECT_FALSE(lumarin::files::FileExists(built));
    EXPECT_EQ(Stored("Built"), "no such document");
}

}  // namespace host
