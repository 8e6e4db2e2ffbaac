#include "host/drive/Steps.h"

namespace host {

namespace {

QString AllQuoted(const QStringList& texts) {
    QString all;
    for (const QString& text : texts) all += ' ' + Quoted(text);
    return all;
}

}  // namespace

QString Quoted(const QString& text) {
    QString escaped = text;
    escaped.replace('\\', "\\\\").replace('"', "\\\"");
    return '"' + escaped + '"';
}

namespace steps {

QStringList OpenPhotos() { return {"tool frmMain.Photos", "wait frmLumarin"}; }

QStringList EnterListing(const QString& number) {
    return {"set frmLumarin.txtID " + number, "key frmLumarin.txtID Enter"};
}

QStringList OpenFiles(const QStringList& paths) {
    return {"tool frmLumarin.Open", "choose" + AllQuoted(paths), "wait frmPhotoCrop"};
}

QStringList DropPhotos(const QStringList& paths) {
    return {"drop frmLumarin.PhotoList" + AllQuoted(paths), "wait frmPhotoCrop"};
}

QStringList Capture(const QString& description) {
    QStringList commands;
    if (!description.isEmpty()) commands += "set frmPhotoCrop.cmbView " + Quoted(description);
    return commands + QStringList{"press frmPhotoCrop.cmdCapture"};
}

QStringList SearchOwner(const QString& owner) {
    return {"press frmLumarin.cmdBrowse", "wait frmFindProperty",
            "set frmFindProperty.txtOwnerName " + Quoted(owner), "press frmFindProperty.cmdShowMatches"};
}

QStringList AskForDocuments(const QString& typed) {
    return {"tool frmMain.Documents", "wait frmListnumPrompt", "set frmListnumPrompt.txtPropertyId " + typed};
}

QStringList OpenDocuments(const QString& number) {
    return AskForDocuments(number) + QStringList{"press frmListnumPrompt.cmdOK", "wait frmAddDocument"};
}

QStringList BeginPdf() { return {"tool frmAddDocument.miMakePdf", "wait frmMakePDF"}; }

QStringList ChooseBlackAndWhite() {
    return {"set frmMakePDF.cboDocType \"Black & White 1-bit (Smallest file)\""};
}

QStringList EndPdf(const QString& description) {
    return {"set frmMakePDF.txtLinkText " + Quoted(description), "press frmMakePDF.cmdOK"};
}

}  // namespace steps

}  // namespace host
