#pragma once

#include <QTimer>
#include <QWidget>

#include "platform/qt/widgets/AviFile.h"

namespace lumarin::qt {

/// Plays a film over and over while it is visible.
class AnimationWidget : public QWidget {
public:
    explicit AnimationWidget(QWidget* parent = nullptr);

    /// A file that cannot be played shows nothing.
    void Open(const QString& path);
    void SetPlaying(bool playing);

    int CurrentFrame() const { return current_; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Advance();
    void StartOrStop();

    AviFile film_;
    QImage frame_;
    QTimer timer_;
    int current_ = 0;
    bool playing_ = false;
};

}  // namespace lumarin::qt
