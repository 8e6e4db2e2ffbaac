#pragma once

#include <QIcon>
#include <QPixmap>
#include <QWidget>

#include "forms/Picture.h"

namespace lumarin::qt {

/// Shows a picture as large as it fits, in its proportions, in the middle. Without a picture it shows
/// its icon, faintly if it is meant as a place holder.
class PictureWidget : public QWidget {
public:
    enum class IconUse { PlaceHolder, Picture };

    explicit PictureWidget(QWidget* parent = nullptr);

    void SetPicture(PicturePtr picture);
    void SetIcon(const QIcon& icon, IconUse use);

    /// Where the picture is seen, in pixels of this widget; empty without a picture.
    QRect PictureRect() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintIcon();

    PicturePtr picture_;
    QPixmap scaled_;  ///< at the size it was last painted; null when it must be made again
    QIcon icon_;
    IconUse iconUse_ = IconUse::PlaceHolder;
};

}  // namespace lumarin::qt
