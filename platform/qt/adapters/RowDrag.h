#pragma once

#include <QAbstractItemView>
#include <QPixmap>
#include <QPoint>
#include <QPointer>
#include <QTimer>

#include <functional>

namespace lumarin::qt {

class RowDragMark;

/// The user drags the selected rows of a list to another place in it: what is dragged follows the pointer, a
/// mark shows where it would go, and at the edges the list scrolls on. Letting go outside of the list, or the
/// Escape key, leaves everything as it is. All points are the viewport's.
class RowDrag final : public QObject {
public:
    /// `dropped` hears in front of which row the selected ones are to go.
    RowDrag(QAbstractItemView& view, std::function<void(int before)> dropped);
    ~RowDrag() override;

    /// The left button went down on a row.
    void Press(QPoint at);
    /// The mouse moved with the button held down; false when nothing is dragged.
    bool Move(QPoint at);
    /// The button went up; false when nothing was dragged.
    bool Release();
    /// False when nothing was dragged.
    bool Cancel();
    bool IsRunning() const;

private:
    void Begin();
    void Show();
    void ScrollOn();
    int PlaceAt(QPoint at) const;
    QRect MarkAt(int before) const;
    QRect RectOf(int row) const;
    QPixmap Likeness() const;

    QAbstractItemView& view_;
    std::function<void(int)> dropped_;
    bool pressed_ = false;
    QPoint from_, at_;
    int before_ = -1;
    QPointer<RowDragMark> mark_;  ///< while something is dragged
    QTimer scroll_;
};

}  // namespace lumarin::qt
