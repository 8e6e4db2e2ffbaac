#include "platform/qt/adapters/RowModel.h"

#include <QIcon>

#include "platform/qt/Conversions.h"

namespace lumarin::qt {

RowModel::RowModel(const ListView& list, QObject* parent)
    : QAbstractTableModel(parent),
      list_(&list),
      rows_(list.Count()),
      columns_(static_cast<int>(list.Columns().size())) {}

void RowModel::Forget() {
    beginResetModel();
    list_ = nullptr;
    rows_ = columns_ = 0;
    endResetModel();
}

void RowModel::RowsInserted(int first, int count) {
    beginInsertRows({}, first, first + count - 1);
    rows_ += count;
    endInsertRows();
}

void RowModel::RowRemoved(int row) {
    beginRemoveRows({}, row, row);
    --rows_;
    endRemoveRows();
}

void RowModel::RowChanged(int row) {
    if (columns_ > 0) emit dataChanged(index(row, 0), index(row, columns_ - 1));
}

void RowModel::Reset() {
    beginResetModel();
    rows_ = list_->Count();
    columns_ = static_cast<int>(list_->Columns().size());
    endResetModel();
}

void RowModel::SetPictureSize(QSize size, double pixelRatio) {
    pictureSize_ = size;
    pixelRatio_ = pixelRatio;
}

int RowModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int RowModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns_; }

QVariant RowModel::data(const QModelIndex& index, int role) const {
    // A removal is told after the fact: until then the view may still ask for the row that went.
    if (list_ == nullptr || !index.isValid() || index.row() >= list_->Count()) return {};
    if (role == Qt::DisplayRole) return ToQt(list_->Cell(index.row(), index.column()));
    if (role != Qt::DecorationRole || index.column() != 0) return {};
    const std::string& picture = list_->At(index.row()).picture;
    if (picture.empty()) return {};
    const QPixmap pixmap = thumbnails_.Of(ToQt(picture), pictureSize_, pixelRatio_);
    QIcon icon(pixmap);
    icon.addPixmap(pixmap, QIcon::Selected);  // a chosen photo keeps its colours
    return icon;
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (list_ == nullptr || orientation != Qt::Horizontal || section < 0 || section >= columns_) return {};
    if (role == Qt::DisplayRole) return ToQt(list_->Columns()[static_cast<std::size_t>(section)].caption);
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

}  // namespace lumarin::qt
