#include "host/desktop/FtpDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRegularExpressionValidator>

namespace host {

namespace {
constexpr QSize UsualSize(480, 360);
}

FtpDialog::FtpDialog(lumarin::Desktop& desktop, QWidget* parent) : QDialog(parent), desktop_(desktop) {
    setObjectName("dlgSendFile");
    setWindowTitle("Send Files to an FTP Server");
    txtServer_ = MakeText("txtServer", "ftp.example.org");
    txtUser_ = MakeText("txtUser", "empty: anonymous");
    txtPassword_ = MakeText("txtPassword", "");
    txtFolder_ = MakeText("txtFolder", "empty: where the server puts you");
    txtPassword_->setEchoMode(QLineEdit::Password);
    // The character that separates the parts of a server's description.
    for (QLineEdit* part : {txtServer_, txtUser_})
        part->setValidator(new QRegularExpressionValidator(QRegularExpression("[^|]*"), part));
    chkEncrypt_ = new QCheckBox("&Encrypt when the server offers it");
    chkEncrypt_->setObjectName("chkEncrypt");
    chkEncrypt_->setChecked(true);
    lstFiles_ = new QListWidget;
    lstFiles_->setObjectName("lstFiles");
    lstFiles_->setAccessibleName("Files to send");
    lstFiles_->setTextElideMode(Qt::ElideMiddle);  // folder and name both matter
    lstFiles_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    LayOut();
    connect(txtServer_, &QLineEdit::textChanged, this, [this] { FilesChanged(); });
    connect(lstFiles_, &QListWidget::currentRowChanged, this, [this] { FilesChanged(); });
    connect(cmdAdd_, &QPushButton::clicked, this, [this] { AddFiles(); });
    connect(cmdRemove_, &QPushButton::clicked, this, [this] { RemoveFile(); });
    FilesChanged();
}

QLineEdit* FtpDialog::MakeText(const char* name, const char* hint) {
    auto* text = new QLineEdit;
    text->setObjectName(name);
    text->setPlaceholderText(hint);
    return text;
}

void FtpDialog::LayOut() {
    auto* form = new QFormLayout(this);
    form->addRow("&Server:", txtServer_);
    form->addRow("&User:", txtUser_);
    form->addRow("&Password:", txtPassword_);
    form->addRow("&Remote folder:", txtFolder_);
    form->addRow("", chkEncrypt_);
    form->addRow("&Files:", lstFiles_);

    auto* fileButtons = new QHBoxLayout;
    cmdAdd_ = new QPushButton("&Add...");
    cmdRemove_ = new QPushButton("Re&move");
    cmdAdd_->setObjectName("cmdAdd");
    cmdRemove_->setObjectName("cmdRemove");
    fileButtons->addWidget(cmdAdd_);
    fileButtons->addWidget(cmdRemove_);
    fileButtons->addStretch();
    form->addRow("", fileButtons);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    cmdSend_ = buttons->addButton("Se&nd", QDialogButtonBox::AcceptRole);
    cmdSend_->setObjectName("cmdSend");
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
    cmdSend_->setDefault(true);  // once it is in the dialog, which would not learn of it before
    resize(UsualSize);
}

void FtpDialog::AddFiles() {
    const std::vector<std::string> chosen = desktop_.ChooseFiles(
        {.title = "Files to send", .filter = "All Files (*.*)|*.*", .folder = "", .several = true}, nullptr);
    for (const std::string& name : chosen) {
        const QString path = QString::fromStdString(name);
        if (lstFiles_->findItems(path, Qt::MatchExactly).isEmpty()) lstFiles_->addItem(path);
    }
    FilesChanged();
}

void FtpDialog::RemoveFile() {
    delete lstFiles_->takeItem(lstFiles_->currentRow());
    FilesChanged();
}

void FtpDialog::FilesChanged() {
    cmdRemove_->setEnabled(lstFiles_->currentRow() >= 0);
    cmdSend_->setEnabled(lstFiles_->count() > 0 && !txtServer_->text().trimmed().isEmpty());
}

lumarin::frmFTP::Order FtpDialog::Order() const {
    QString server = txtServer_->text();
    if (!txtUser_->text().isEmpty()) server += '|' + txtUser_->text() + '|' + txtPassword_->text();
    QStringList files;
    for (int row = 0; row < lstFiles_->count(); ++row) files += lstFiles_->item(row)->text();
    return {.server = server.toStdString(),
            .remoteFolder = txtFolder_->text().toStdString(),
            .files = files.join(QChar(0)).toStdString(),
            .security =
                chkEncrypt_->isChecked() ? lumarin::FtpSecurity::WhenOffered : lumarin::FtpSecurity::None};
}

}  // namespace host
