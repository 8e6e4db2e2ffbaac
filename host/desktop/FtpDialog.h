#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "util/frmFTP.h"

namespace host {

/// Asks where which files go. Every input has the name that the driver knows it by.
class FtpDialog : public QDialog {
public:
    FtpDialog(lumarin::Desktop& desktop, QWidget* parent);

    lumarin::frmFTP::Order Order() const;

private:
    void LayOut();
    QLineEdit* MakeText(const char* name, const char* hint);
    void AddFiles();
    void RemoveFile();
    void FilesChanged();

    lumarin::Desktop& desktop_;
    QLineEdit *txtServer_, *txtUser_, *txtPassword_, *txtFolder_;
    QCheckBox* chkEncrypt_;
    QListWidget* lstFiles_;
    QPushButton *cmdAdd_, *cmdRemove_, *cmdSend_;
};

}  // namespace host
