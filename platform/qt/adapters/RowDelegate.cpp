#include "platform/qt/adapters/RowDelegate.h"

#include <QListView>

#include <algorithm>

namespace lumarin::qt {

namespace {

constexpr QSize RowPadding(12, 6);
constexpr QSize GridPadding(10, 10);
constexpr int NarrowestText = 24;  // pixels; a row is as wide as its list

}  // namespace

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const auto* list = qobject_cast<const QListView*>(option.widget);
    if (list == nullptr) return QStyledItemDelegate::sizeHint(option, index) + RowPadding;
    const QSize picture = list->iconSize();
    const int line = option.fontMetrics.height();
    if (list->viewMode() == QListView::IconMode) return picture + GridPadding + QSize(0, line);
    return QSize(picture.width() + NarrowestText, std::max(picture.height(), line)) + RowPadding;
}

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->showDecorationSelected = true;  // in a grid too, where the toolkit would mark the text alone
    if (option->decorationPosition == QStyleOptionViewItem::Top)
        option->displayAlignment = Qt::AlignHCenter | Qt::AlignVCenter;
}

}  // namespace lumarin::qt
