#pragma once

#include <QWidget>

namespace lumarin::qt {

/// A drawn rectangle with rule-of-thirds guides, over everything else in its parent and transparent to
/// the mouse. It covers its whole parent, so that it can dim the pictures outside of the rectangle and show
/// white where the rectangle runs past them; the rectangle itself may run past the parent.
class ShapeWidget : public QWidget {
public:
    explicit ShapeWidget(QWidget* parent = nullptr);

    /// In pixels of the parent.
    void SetBox(const QRect& box);
    /// Shows a grid over the pictures in place of the thirds.
    void SetGrid(bool grid);
    const QRect& Box() const { return box_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void CoverParent();
    QRegion PictureRegion() const;
    void PaintSurroundings(QPainter& painter) const;
    void PaintGuides(QPainter& painter) const;
    void PaintHandles(QPainter& painter) const;
    void PaintCorners(QPainter& painter) const;

    void PaintGrid(QPainter& painter) const;

    bool grid_ = false;
    QRect box_;
};

}  // namespace lumarin::qt
