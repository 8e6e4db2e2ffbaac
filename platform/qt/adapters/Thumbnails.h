#pragma once

#include <QCache>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace lumarin::qt {

/// Small pictures of picture files, made when they are asked for. One is made anew when its file has
/// changed.
class Thumbnails {
public:
    /// A pixmap of exactly this size in logical pixels with the picture in its middle; a place holder when
    /// the file cannot be read as a picture.
    QPixmap Of(const QString& file, QSize size, double pixelRatio);

private:
    static QPixmap Make(const QString& file, QSize size, double pixelRatio);

    QCache<QString, QPixmap> made_{500};
};

}  // namespace lumarin::qt
