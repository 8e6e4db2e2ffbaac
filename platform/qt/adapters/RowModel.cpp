#include "platform/qt/adapters/RowModel.h"

#include <QFont>
#include <QTextDocument>

#include "platform/qt/Conversions.h"

namespace lumarin::qt {

namespace {

/// Whatever else the view says of its letters.
QFont StrongLetters() {
    QFont strong;
    strong.setBold(true);
    return strong;
}

/// The text may come from others, and is none that the toolkit should lay out.
QString ToolTip(const QString& text, int role) {
    return role == Qt::ToolTipRole && Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

}  // namespace

RowModel::RowModel(const ListView& list, QObject* parent)
    : QAbstractTableModel(parent),
      list_(&list),
      rows_(list.Count()),
      columns_(static_cast<int>(list.Columns().size())),
      thumbnails_([this] {
          if (rows_ > 0 && columns_ > 0)
              emit dataChanged(index(0, 0), index(rows_ - 1, 0), {Qt::DecorationRole});
      }) {}

void RowModel::Forget() {
    beginResetModel();
    list_ = nullptr;
    rows_ = columns_ = 0;
    endResetModel();
}

void RowModel::RowInserted(int row) {
    if (row > rows_) return;
    beginInsertRows({}, row, row);
    ++rows_;
    endInsertRows();
}

void RowModel::RowRemoved(int row) {
    if (row >= rows_) return;
    beginRemoveRows({}, row, row);
    --rows_;
    endRemoveRows();
}

void RowModel::RowChanged(int row) {
    if (row < rows_ && columns_ > 0) emit dataChanged(index(row, 0), index(row, columns_ - 1));
}

void RowModel::CatchUp() {
    if (list_ == nullptr || list_->Count() <= rows_) return;
    beginInsertRows({}, rows_, list_->Count() - 1);
    rows_ = list_->Count();
    endInsertRows();
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

// The view asks for both of these for each of its rows whenever it lays itself out, and a list may have a
// million: these are the base's answers without its detours.
QModelIndex RowModel::index(int row, int column, const QModelIndex& parent) const {
    const bool is = row >= 0 && row < rows_ && column >= 0 && column < columns_ && !parent.isValid();
    return is ? createIndex(row, column) : QModelIndex();
}

Qt::ItemFlags RowModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    // A removal is reported after the fact: until then the view may still ask for the row that went.
    if (list_ == nullptr || !index.isValid() || index.row() >= list_->Count()) return {};
    if (role == Qt::DisplayRole) return ToQt(list_->Cell(index.row(), index.column()));
    if (role == Qt::TextAlignmentRole) return Alignment(index.column());
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole)
        return ToolTip(ToQt(list_->At(index.row()).toolTip), role);
    if (role == Qt::FontRole && list_->IsStrong(index.row())) return StrongLetters();
    if (role != Qt::DecorationRole || index.column() != 0) return {};
    const std::string picture = list_->At(index.row()).picture;
    if (picture.empty()) return {};
    return thumbnails_.Of(ToQt(picture), pictureSize_, pixelRatio_);
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (list_ == nullptr || orientation != Qt::Horizontal || section < 0 || section >= columns_) return {};
    if (role == Qt::DisplayRole) return ToQt(list_->Columns()[static_cast<std::size_t>(section)].caption);
    if (role == Qt::TextAlignmentRole) return Alignment(section);
    return {};
}

QVariant RowModel::Alignment(int column) const {
    const auto alignment = list_->Columns()[static_cast<std::size_t>(column)].alignment;
    return QVariant((alignment == ListView::Alignment::Right ? Qt::AlignRight : Qt::AlignLeft) |
                    Qt::AlignVCenter);
}

}  // namespace lumarin::qt
