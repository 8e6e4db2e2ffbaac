#pragma once

#include <QEvent>
#include <QFrame>

#include "forms/Geometry.h"

namespace lumarin::qt {

/// An area that takes the keyboard and the mouse itself and shows when it has the keyboard.
class FrameWidget : public QFrame {
public:
    /// Comes to each child when the frame's contents are seen differently.
    static constexpr auto LensChanged = static_cast<QEvent::Type>(QEvent::User + 1);

    explicit FrameWidget(QWidget* parent = nullptr);

    const Lens& Seen() const { return lens_; }
    void SetLens(const Lens& lens);

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    Lens lens_;
};

/// The lens over a widget: of the frame that it stands in, else the plain one.
Lens LensOver(const QWidget& widget);

}  // namespace lumarin::qt
