#pragma once

#include <QStyledItemDelegate>

namespace lumarin::qt {

/// Gives the rows of a list room to breathe. Those of a list view are all of one size, which the size of
/// their pictures gives: no picture is read to find out.
class RowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace lumarin::qt
