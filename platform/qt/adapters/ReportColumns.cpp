#include "platform/qt/adapters/ReportColumns.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QTimer>

#include <algorithm>
#include <utility>

#include "platform/qt/Conversions.h"
#include "platform/qt/UserLayout.h"

namespace lumarin::qt {

namespace {

constexpr int WidestFittedColumn = 320;  // pixels
constexpr int RowsMeasured = 100;

}  // namespace

ReportColumns::ReportColumns(QTreeView& tree, std::function<ListView*()> list)
    : tree_(tree), list_(std::move(list)) {
    QHeaderView& header = *tree.header();
    header.setSectionsClickable(true);
    header.setResizeContentsPrecision(RowsMeasured);
    connect(&header, &QHeaderView::sectionClicked, this, [this](int column) { Clicked(column); });
    connect(&header, &QHeaderView::sectionResized, this, [this] {
        const bool held = QGuiApplication::mouseButtons().testFlag(Qt::LeftButton);
        if (held && tree_.header()->underMouse()) Resized();
    });
}

void ReportColumns::Clicked(int column) {
    if (list_() != nullptr) list_()->ClickColumn(column);
    // The header turns its arrow with every click; only the list knows whether it was sorted.
    if (list_() != nullptr) ShowSortOrder();
}

void ReportColumns::ShowSortOrder() {
    QHeaderView& header = *tree_.header();
    const int column = list_()->SortColumn();
    header.setSortIndicatorShown(column >= 0);
    header.setSortIndicator(column, list_()->SortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void ReportColumns::FitLater() {
    if (fitPending_ || sizedByUser_) return;
    fitPending_ = true;
    QTimer::singleShot(0, this, [this] {
        fitPending_ = false;
        if (list_() != nullptr) Fit();
    });
}

void ReportColumns::Resized() {
    sizedByUser_ = true;
    if (layout_ == nullptr) return;
    std::vector<int> widths;
    for (int i = 0; i < tree_.header()->count(); ++i) widths.push_back(tree_.header()->sectionSize(i));
    // The last column takes what the window leaves; its own width would not fit another one.
    if (tree_.header()->stretchLastSection()) widths.back() = 0;
    layout_->Set(tree_.objectName(), std::move(widths));
}

void ReportColumns::Fit() {
    QHeaderView& header = *tree_.header();
    const auto& columns = list_()->Columns();
    if (layout_ != nullptr && !columns.empty() && layout_->Of(tree_.objectName()).size() == columns.size()) {
        const std::vector<int>& widths = layout_->Of(tree_.objectName());
        for (std::size_t i = 0; i < widths.size(); ++i)
            if (widths[i] > 0) header.resizeSection(static_cast<int>(i), widths[i]);
        return;
    }
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
        const ListView::Column& column = columns[static_cast<std::size_t>(i)];
        const int wanted = ToPixels(column.width);
        if (wanted > 0 && column.sizing == ListView::Sizing::Fixed) {
            header.resizeSection(i, wanted);
        } else {
            tree_.resizeColumnToContents(i);
            header.resizeSection(
                i, std::clamp(header.sectionSize(i), wanted, std::max(wanted, WidestFittedColumn)));
        }
    }
}

}  // namespace lumarin::qt
