#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonObject>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "host/drive/BrowserRecord.h"
#include "host/drive/Commands.h"
#include "host/drive/DriveError.h"
#include "host/drive/Hands.h"
#include "host/drive/WidgetFinder.h"
#include "host/drive/WidgetState.h"

namespace host::commands {

namespace {

void ClickMiddle(QWidget& widget) {
    hands::Activate(*widget.window());
    hands::Click(widget, widget.rect().center());
}

void AnswerMessage(const QString& caption) {
    QMessageBox* box = WaitingMessage();
    if (box == nullptr) throw DriveError("No message waits");
    for (QAbstractButton* button : box->buttons())
        if (PlainCaption(button->text()).compare(caption, Qt::CaseInsensitive) == 0)
            return ClickMiddle(*button);
    throw DriveError("The message has no button \"" + caption + "\"");
}

/// What a person types into a file dialog's name box: one path, or several in quotes.
QString TypedNames(const QStringList& paths, bool mustExist) {
    QStringList names;
    for (const QString& path : paths) {
        const QFileInfo file(path);
        if (file.absolutePath() != QFileInfo(paths.first()).absolutePath())
            throw DriveError("A file dialog chooses files of one folder");
        if (mustExist && !file.exists()) throw DriveError("There is no file \"" + path + "\"");
        if (path.contains('"')) throw DriveError("A file name with a quote cannot be typed");
        names += file.absoluteFilePath();
    }
    return names.size() == 1 ? names.first() : '"' + names.join("\" \"") + '"';
}

void ChooseFiles(const QStringList& paths) {
    QFileDialog* dialog = WaitingFileDialog();
    if (dialog == nullptr) throw DriveError("No file dialog waits");
    auto* buttons = dialog->findChild<QDialogButtonBox*>();
    auto* nameBox = dialog->findChild<QLineEdit*>("fileNameEdit");
    if (buttons == nullptr || nameBox == nullptr) throw DriveError("The file dialog cannot be reached");
    if (paths.isEmpty()) return ClickMiddle(*buttons->button(QDialogButtonBox::Cancel));
    if (paths.size() > 1 && dialog->fileMode() != QFileDialog::ExistingFiles)
        throw DriveError("The file dialog takes one file");

    const bool opens = dialog->acceptMode() == QFileDialog::AcceptOpen;
    nameBox->setText(TypedNames(paths, opens));
    QPushButton* accept = buttons->button(opens ? QDialogButtonBox::Open : QDialogButtonBox::Save);
    if (accept == nullptr || !accept->isEnabled())
        throw DriveError("The file dialog does not accept " + paths.join(", "));
    ClickMiddle(*accept);
}

void FillClipboard(const QString& path) {
    if (path == "clear") return QApplication::clipboard()->clear();
    QImageReader::setAllocationLimit(0);  // the limit is lower than what large cameras deliver
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    if (image.isNull()) throw DriveError("Cannot read \"" + path + "\": " + reader.errorString());
    QApplication::clipboard()->setImage(image);
}

}  // namespace

Step Answer(const QStringList& words) {
    return {.untilIdle = true, .act = [caption = words[0]] { AnswerMessage(caption); }};
}

Step Choose(const QStringList& words) {
    return {.untilIdle = true, .act = [words] { ChooseFiles(words); }};
}

Step Browser(const QStringList&) {
    return {.untilIdle = true, .read = [] {
                return QJsonObject{{"opened", QJsonArray::fromStringList(BrowserRecord::Opened())}};
            }};
}

Step Clipboard(const QStringList& words) {
    return {.act = [path = words[0]] { FillClipboard(path); }};
}

}  // namespace host::commands
