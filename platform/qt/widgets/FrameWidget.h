#pragma once

#include <QFrame>

namespace lumarin::qt {

/// An area that takes the keyboard and the mouse itself and shows when it has the keyboard.
class FrameWidget : public QFrame {
public:
    explicit FrameWidget(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

}  // namespace lumarin::qt
