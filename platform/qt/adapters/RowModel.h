#pragma once

#include <QAbstractTableModel>

#include "forms/ListView.h"
#include "platform/qt/adapters/Thumbnails.h"

namespace lumarin::qt {

/// A list view's rows for a tree view. It holds no copy of them: it counts the rows that the view knows
/// of, and reads texts from the control when they are painted. Those are the first rows of the control:
/// what was added at its end need not be reported at once.
class RowModel final : public QAbstractTableModel {
public:
    RowModel(const ListView& list, QObject* parent);

    /// The control is going; the model becomes empty.
    void Forget();

    // The rows are in the control, or gone from it, already.
    void RowInserted(int row);
    void RowRemoved(int row);
    void RowChanged(int row);
    /// Tells the view of all rows that were added at the end.
    void CatchUp();
    void Reset();

    /// Size of the row pictures, in logical pixels.
    void SetPictureSize(QSize size, double pixelRatio);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QVariant Alignment(int column) const;

    const ListView* list_;
    int rows_;
    int columns_;
    QSize pictureSize_{64, 40};
    double pixelRatio_ = 1;
    mutable Thumbnails thumbnails_;
};

}  // namespace lumarin::qt
