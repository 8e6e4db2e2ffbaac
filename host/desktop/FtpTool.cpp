#include "host/desktop/FtpTool.h"

#include <QAction>
#include <QStatusBar>
#include <QToolBar>

#include "base/Files.h"
#include "host/desktop/FtpDialog.h"
#include "platform/curl/CurlFtp.h"
#include "platform/qt/Icons.h"

namespace host {

FtpTool::FtpTool(lumarin::Desktop& desktop, lumarin::VelCommon& common, MainWindow& mainWindow,
                 std::string certificates)
    : desktop_(desktop), mainWindow_(mainWindow), certificates_(std::move(certificates)) {
    link_.Set(common);
    auto* tool = new QAction(lumarin::qt::ToolIcon("document-send"), "&Send File", &mainWindow_);
    tool->setObjectName("SendFile");
    tool->setShortcut(QKeySequence("Ctrl+T"));
    tool->setToolTip("Send files to an FTP server");
    connect(tool, &QAction::triggered, this, [this] { Open(); });
    mainWindow_.findChild<QToolBar*>("Jobs")->addAction(tool);
}

void FtpTool::Open() {
    FtpDialog dialog(desktop_, &mainWindow_);
    while (dialog.exec() == QDialog::Accepted && Send(dialog.Order()) == lumarin::FtpOutcome::Failed)
        dialog.move(dialog.pos());  // where its frame stood, which the window system would put its inside at
}

lumarin::FtpOutcome FtpTool::Send(const lumarin::frmFTP::Order& order) {
    desktop_.SetHelpFile(link_.Common().HelpFilePath());
    const bool ownCertificates = lumarin::files::FileExists(certificates_);
    lumarin::curl::CurlFtp transfer({ownCertificates ? certificates_ : ""});
    lumarin::frmFTP window(desktop_, clock_, link_, transfer);
    lumarin::FtpResult result;
    window.SendFiles(order, result, &mainWindow_);

    const QString count = QString::number(result.sent) + (result.sent == 1 ? " file was" : " files were");
    const QString text = result.outcome == lumarin::FtpOutcome::Sent ? count + " sent."
                         : result.outcome == lumarin::FtpOutcome::Failed
                             ? "The sending failed; " + count + " sent."
                             : "Cancelled; " + count + " sent.";
    mainWindow_.statusBar()->showMessage(text);
    return result.outcome;
}

}  // namespace host
