#pragma once

#include <QHash>
#include <QIcon>
#include <QIdentityProxyModel>
#include <QPersistentModelIndex>
#include <QTimer>

#include <deque>

namespace lumarin::qt {

/// The files of a file dialog, pictures with a thumbnail instead of an icon. It is made when the file is
/// seen, one at a time between the events of the user, so that a folder of hundreds opens at once.
class PictureModel final : public QIdentityProxyModel {
public:
    static constexpr QSize ThumbnailSize{128, 96};

    explicit PictureModel(QWidget& dialog);

    QVariant data(const QModelIndex& index, int role) const override;

private:
    void MakeNext();

    QWidget& dialog_;
    QHash<QString, QIcon> made_;
    mutable std::deque<QPersistentModelIndex> wanted_;  ///< the last one was seen last
    mutable QTimer next_;
};

}  // namespace lumarin::qt
