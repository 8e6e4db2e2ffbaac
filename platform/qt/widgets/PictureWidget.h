#pragma once

#include <QIcon>
#include <QImage>
#include <QWidget>

#include <optional>

#include "forms/Picture.h"

namespace lumarin::qt {

/// Shows a picture as large as it fits, in its proportions, in the middle. Without a picture it shows
/// its icon, faintly if it is meant as a place holder. It may be much larger than the part of it that its
/// parent shows; only that part takes time and memory.
class PictureWidget : public QWidget {
public:
    enum class IconUse { PlaceHolder, Picture };

    explicit PictureWidget(QWidget* parent = nullptr);

    void SetPicture(PicturePtr picture);
    /// Colour values are shown by this table; none leaves them as they are.
    void SetTones(const std::optional<ToneTable>& tones);
    void SetIcon(const QIcon& icon, IconUse use);

    /// Where the picture is seen, in pixels of this widget; empty without a picture.
    QRect PictureRect() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect VisiblePart() const;
    void ScaleVisiblePart(const QRect& part);
    const QImage& WithTones();
    void PaintIcon();

    PicturePtr picture_;
    std::optional<ToneTable> tones_;
    QImage scaled_;      ///< the part of the picture that was last painted, in the screen's pixels
    QRect scaledPart_;   ///< of this widget; empty when it must be made again
    QRect scaledPlace_;  ///< of the whole picture when the part was made
    QImage toned_;       ///< the same by the table; keeps its memory from one table to the next
    bool tonedIsCurrent_ = false;
    QIcon icon_;
    IconUse iconUse_ = IconUse::PlaceHolder;
};

}  // namespace lumarin::qt
