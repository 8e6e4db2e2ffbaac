#include "platform/qt/PictureModel.h"

#include <QFileInfo>
#include <QFileSystemModel>
#include <QImageReader>
#include <QWidget>

#include "platform/qt/adapters/Thumbnails.h"

namespace lumarin::qt {

namespace {

/// More than are seen at once; what was scrolled past is not made.
constexpr std::size_t MostWanted = 400;

QString PathOf(const QModelIndex& index) { return index.data(QFileSystemModel::FilePathRole).toString(); }

bool IsPicture(const QString& path) {
    static const QList<QByteArray> endings = QImageReader::supportedImageFormats();
    return endings.contains(QFileInfo(path).suffix().toLower().toLatin1());
}

}  // namespace

PictureModel::PictureModel(QWidget& dialog) : QIdentityProxyModel(&dialog), dialog_(dialog) {
    next_.setSingleShot(true);
    next_.setInterval(0);
    connect(&next_, &QTimer::timeout, this, [this] { MakeNext(); });
}

QVariant PictureModel::data(const QModelIndex& index, int role) const {
    const QVariant usual = QIdentityProxyModel::data(index, role);
    if (role != Qt::DecorationRole || index.column() != 0) return usual;
    const QString path = PathOf(index);
    if (const auto made = made_.constFind(path); made != made_.cend()) return *made;
    if (!IsPicture(path)) return usual;
    wanted_.emplace_back(index);
    if (wanted_.size() > MostWanted) wanted_.pop_front();
    next_.start();
    return usual;
}

void PictureModel::MakeNext() {
    if (wanted_.empty()) return;
    const QPersistentModelIndex index = wanted_.back();
    wanted_.pop_back();
    const QString path = index.isValid() ? PathOf(index) : QString();
    if (!path.isEmpty() && !made_.contains(path)) {
        made_.insert(path, MakeThumbnail(path, ThumbnailSize, dialog_.devicePixelRatioF()));
        emit dataChanged(index, index, {Qt::DecorationRole});
    }
    if (!wanted_.empty()) next_.start();
}

}  // namespace lumarin::qt
