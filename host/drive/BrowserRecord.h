#pragma once

#include <QObject>
#include <QStringList>
#include <QUrl>

namespace host {

/// While one lives, what the program wants to show in the browser or another program is written down and not
/// opened. One at a time.
class BrowserRecord : public QObject {
    Q_OBJECT

public:
    BrowserRecord();
    ~BrowserRecord() override;

    /// All addresses since the record began, in order; none without a record.
    static QStringList Opened();

    Q_SLOT void Open(const QUrl& address) { opened_ += address.toString(QUrl::FullyEncoded); }

private:
    QStringList opened_;
};

}  // namespace host
