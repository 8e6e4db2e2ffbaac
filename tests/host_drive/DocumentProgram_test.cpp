#include "platform_qpdf/PdfJudges.h"

#include <QDir>
#include <QImage>

#include "base/Files.h"
#include "host/database/Schema.h"
#include "host/demo/SamplePdf.h"
#include "host/server/Server.h"
#include "host_drive/RunProgram.h"

namespace host {

using testing::ProgramRun;
namespace judges = lumarin::judges;

namespace {

constexpr std::size_t Largest = 1'024'000;  // 1000 KB

}  // namespace

/// An agent's work with the documents of listing 100124, which has none at first.
class DocumentProgramTest : public testing::ProgramTest {
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

    ProgramRun DriveDocuments(const QStringList& commands) const {
        const QStringList opening = {"wait frmListnumPrompt", "set frmListnumPrompt.txtPropertyId 100124",
                                     "press frmListnumPrompt.cmdOK", "wait frmAddDocument"};
        return Drive(opening + commands, {"--documents"});
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
};

TEST_F(DocumentProgramTest, FilesAndLinks_GoToTheServerAsTheyAreOrNotAtAll) {
    const std::string largest = SamplePdf().AddText("Largest", {}).BytesOf(Largest);
    Write("largest.v2.pdf", largest);
    Write("more.pdf", SamplePdf().AddText("More", {}).BytesOf(Largest + 1));
    Write("five.pdf", "%PDF-");
    Write("web.pdf", "<html>no document</html>");
    const ProgramRun run = DriveDocuments(
        Adding("more.pdf") + QStringList{"message", "answer OK"} + Adding("five.pdf") +
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
    EXPECT_EQ(run.Text(6), "File is too large!\nFilesize of 2MB exceeds maximum allowed (1MB)");
    EXPECT_EQ(run.Text(10), "File must be in PDF format");
    EXPECT_EQ(run.Text(14), "File must be in PDF format");
    EXPECT_EQ(run.Text(18), "largest.v2");
    EXPECT_TRUE(run.answers[24].isNull());
    const QJsonArray rows = run.Rows(25);
    EXPECT_EQ(rows, QJsonArray({QJsonArray({"largest.v2", "1MB"}),
                                QJsonArray({QStringLiteral("Town \u00A6 plan"), "www.example.org/a%7Cb"})}));
    EXPECT_EQ(lumarin::files::ReadAll(Stored("largest.v2")), largest);
    const QJsonArray opened = run.answers[30]["opened"].toArray();
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
    const ProgramRun run = DriveDocuments(
        {"tool frmAddDocument.miMakePdf", "press frmMakePDF.cmdAddFiles",
         "choose " + folder.filePath("a.jpg") + ' ' + folder.filePath("b.png"),
         "clipboard " + folder.filePath("b.png"), "tool frmMakePDF.paste", "get frmMakePDF.lbmBM",
         "set frmMakePDF.txtLinkText Built", "press frmMakePDF.cmdOK", "tool frmAddDocument.miMakePdf",
         "set frmMakePDF.cboDocType \"Black & White 1-bit (Smallest file)\"", "tool frmMakePDF.AcquireSingle",
         "set frmMakePDF.txtLinkText Scanned", "press frmMakePDF.cmdOK", "get frmAddDocument.lvFiles"});
    ASSERT_EQ(run.exitCode, 0) << run.output.toStdString() << run.errors.toStdString();
    EXPECT_EQ(run.Rows(9).size(), 3);
    const QJsonArray rows = run.Rows(17);
    ASSERT_EQ(rows.size(), 2) << run.output.toStdString();
    EXPECT_EQ(judges::PicturesOf(Stored("Built")),
              (std::vector<std::string>{"image 1275 797 rgb 3 8 image", "image 600 800 rgb 3 8 image",
                                        "image 600 800 rgb 3 8 image"}));
    const std::vector<std::string> scanned = judges::PicturesOf(Stored("Scanned"));
    ASSERT_EQ(scanned.size(), 1u);
    EXPECT_NE(scanned.front().find(" gray 1 1 "), std::string::npos);
    for (const char* description : {"Built", "Scanned"})
        judges::OutputOf("qpdf --check " + judges::Quoted(Stored(description)));
    for (int row = 0; row < 2; ++row) {
        const QJsonArray cells = rows[row].toArray();
        const auto bytes = lumarin::files::FileLength(Stored(cells[0].toString().toStdString()));
        EXPECT_EQ(cells[1], QString("%1KB").arg((bytes + 1023) / 1024));
    }
    const std::string built = Stored("Built");
    const ProgramRun deletion =
        DriveDocuments({"select frmAddDocument.lvFiles 0", "key frmAddDocument.lvFiles Delete", "answer Yes",
                        "message", "get frmAddDocument.lvFiles"});
    EXPECT_EQ(deletion.answers.back()["rows"].toArray().size(), 1);
    EXPECT_FALSE(lumarin::files::FileExists(built));
    EXPECT_EQ(Stored("Built"), "no such document");
}

}  // namespace host
