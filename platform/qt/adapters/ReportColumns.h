#pragma once

#include <QObject>
#include <QTreeView>

#include <functional>

#include "forms/ListView.h"

namespace lumarin::qt {

class UserLayout;

/// The columns of a list that is shown as a report: their widths, and the arrow of the sort order. `list` is
/// asked each time, and gives null when the list is gone.
class ReportColumns final : public QObject {
public:
    ReportColumns(QTreeView& tree, std::function<ListView*()> list);

    void UseLayout(UserLayout& layout) { layout_ = &layout; }
    void ShowSortOrder();
    /// Many rows come in one turn; the columns are measured once, when the first of them are there.
    void FitLater();

private:
    void Clicked(int column);
    void Resized();
    void Fit();

    QTreeView& tree_;
    std::function<ListView*()> list_;
    bool fitPending_ = false;
    bool sizedByUser_ = false;
    UserLayout* layout_ = nullptr;
};

}  // namespace lumarin::qt
