#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>

class QAction;
class QKeyEvent;
class QMenu;

namespace lumarin::qt {

/// Typing in a menu finds the entry whose text starts so, where no entry has an access key: letters would
/// otherwise do nothing. Lives as long as the menu.
class MenuSearch final : public QObject {
public:
    explicit MenuSearch(QMenu& menu);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Typed(const QKeyEvent& key);
    QAction* Found() const;

    QMenu& menu_;
    QString typed_;
    QElapsedTimer sinceLast_;
};

}  // namespace lumarin::qt
