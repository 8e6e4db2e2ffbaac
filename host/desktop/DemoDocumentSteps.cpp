#include <QJsonArray>

#include "base/Files.h"
#include "host/database/Schema.h"
#include "host/demo/SamplePdf.h"
#include "host/desktop/Demo.h"
#include "host/drive/Steps.h"
#include "host/server/Server.h"

namespace host {

namespace {

constexpr std::int32_t Listing = 100124;

QJsonArray FirstRow(const QJsonObject& list) { return list["rows"].toArray().first().toArray(); }

}  // namespace

void Demo::OpenDocumentManager() {
    Step("The tool \"Documents\" asks for a listing number; it takes digits only");
    client_.DoAll(steps::AskForDocuments("100a124"));
    const QString text = client_.Get("frmListnumPrompt.txtPropertyId")["text"].toString();
    if (text != QString::number(Listing)) throw DemoFailure("The prompt for a listing number took " + text);
    Shot("frmListnumPrompt");
    client_.DoAll({"press frmListnumPrompt.cmdOK", "wait frmAddDocument"});
    ExpectRows("frmAddDocument.lvFiles", 0);
}

void Demo::AddDocuments() {
    Step("A PDF file that exists, and a link, are added to listing 100124");
    const std::string path = folders_.originals + "Floor plan.pdf";
    const std::string pdf = SamplePdf().AddFloorPlan("Floor plan", "88 Harbor View Drive").BytesOf(30'000);
    lumarin::files::WriteWhole(path, pdf);
    client_.DoAll({"tool frmAddDocument.miAddExistingFile", "choose " + Quoted(QString::fromStdString(path)),
                   "wait frmPromptLinkText", "press frmPromptLinkText.cmdOK"});
    ExpectNoMessage("Adding a file");
    client_.DoAll({"tool frmAddDocument.miAddUrl", "wait frmPromptLinkText",
                   "set frmPromptLinkText.txtLinkText \"Schools nearby\"",
                   "set frmPromptLinkText.txtUrl https://www.example.org/schools"});
    Shot("frmPromptLinkText");
    client_.Do("press frmPromptLinkText.cmdOK");
    ExpectNoMessage("Adding a link");
    ExpectRows("frmAddDocument.lvFiles", 2);
    ExpectStored("Floor plan", pdf);
}

void Demo::BuildPdf() {
    const bool scans = !testDevice_.isEmpty();
    Step(QString("A PDF is built of a JPEG, a PNG, the clipboard's picture") +
         (scans ? " and a scanned page" : ""));
    const QString jpeg = Draw("garden.jpg", 480, 300, 4);
    const QString png = QString::fromStdString(folders_.shots) + "frmPhotoViewer.png";
    client_.DoAll(steps::BeginPdf() +
                  QStringList{"press frmMakePDF.cmdAddFiles", "choose " + Quoted(jpeg),
                              "press frmMakePDF.cmdAddFiles", "choose " + Quoted(png),
                              "clipboard " + Quoted(png), "tool frmMakePDF.paste"} +
                  steps::ChooseBlackAndWhite());
    if (scans) {
        ChooseTestDevice("frmMakePDF");
        client_.Do("tool frmMakePDF.AcquireSingle");
    }
    ExpectNoMessage("Building a PDF");
    ExpectRows("frmMakePDF.lbmBM", scans ? 4 : 3);
    client_.Do("set frmMakePDF.txtLinkText \"Garden and house\"");
    Shot("frmMakePDF");
    const std::string built = lumarin::files::ReadAll(folders_.data + "user/CreatePDFTmp.pdf");
    client_.Do("press frmMakePDF.cmdOK");
    ExpectNoMessage("Sending the PDF");
    ExpectRows("frmAddDocument.lvFiles", 3);
    ExpectStored("Garden and house", built);
    Shot("frmAddDocument");
}

void Demo::LookAndDelete() {
    Step("Preview opens a document in the browser, Delete removes it");
    const QString name = FirstRow(client_.Get("frmAddDocument.lvFiles"))[0].toString();
    client_.DoAll({"select frmAddDocument.lvFiles 0", "press frmAddDocument.cmdPreview"});
    const QString address = client_.Do("browser").toObject()["opened"].toArray().last().toString();
    if (!address.startsWith("http://docs.localhost:") || !address.endsWith(".pdf"))
        throw DemoFailure("The preview opened " + address);
    client_.DoAll({"press frmAddDocument.cmdDelete", "answer Yes"});
    ExpectNoMessage("Deleting a document");
    ExpectRows("frmAddDocument.lvFiles", 2);
    if (!DocumentsOf(Listing, name).empty()) throw DemoFailure("The server still has the document " + name);
    client_.Do("close frmAddDocument");
}

/// The files of the listing's documents with this description, as the server keeps them.
std::vector<std::string> Demo::DocumentsOf(std::int32_t listing, const QString& description) const {
    Database database(DatabasePath(folders_.data), DatabaseUse::Queries);
    const DocumentStore store(Server::DocumentFolder(folders_.data), Server::UsualUserCode);
    Statement row(database, "SELECT DocID FROM Documents WHERE DocListNum = ? AND DocDesc = ?");
    row.Bind(1, std::int64_t{listing}).Bind(2, description.toStdString());
    std::vector<std::string> documents;
    while (row.Step()) documents.push_back(lumarin::files::ReadAll(store.Path(listing, row.Integer(0))));
    return documents;
}

void Demo::ExpectStored(const QString& description, const std::string& bytes) {
    if (DocumentsOf(Listing, description) != std::vector{bytes})
        throw DemoFailure("The server does not hold exactly the document that was sent: " + description);
}

}  // namespace host
