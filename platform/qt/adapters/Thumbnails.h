#pragma once

#include <QCache>
#include <QIcon>
#include <QSize>
#include <QString>

namespace lumarin::qt {

/// Small pictures of picture files, made when they are asked for. One is made again when its file has
/// changed.
class Thumbnails {
public:
    /// An icon of exactly this size in logical pixels with the picture in its middle; a place holder when the
    /// file cannot be read as a picture. It keeps its colours when it is chosen.
    QIcon Of(const QString& file, QSize size, double pixelRatio);

private:
    static QPixmap Make(const QString& file, QSize size, double pixelRatio);

    QCache<QString, QIcon> made_{100};  // more than a listing has
};

}  // namespace lumarin::qt
