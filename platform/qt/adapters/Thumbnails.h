#pragma once

#include <QCache>
#include <QIcon>
#include <QObject>
#include <QSize>
#include <QString>
#include <QTimer>

#include <functional>

namespace lumarin::qt {

/// An icon of exactly this size in logical pixels with the file's picture in its middle; a place holder when
/// the file cannot be read as a picture. It keeps its colours when it is chosen.
QIcon MakeThumbnail(const QString& file, QSize size, double pixelRatio);

/// Small pictures of a list's picture files, made when they are asked for. One is made again when its file
/// has changed, but not when files have changed their names among each other: a file is known by its folder,
/// length and time.
class Thumbnails : public QObject {
public:
    /// When many are wanted at once, only as many are made as nobody has to wait for. The others are place
    /// holders until `more` says that they should be asked for again.
    explicit Thumbnails(std::function<void()> more);

    QIcon Of(const QString& file, QSize size, double pixelRatio);

private:
    QCache<QString, QIcon> made_{200};  // more than a listing has, in two sizes
    QIcon placeHolder_;
    QSize placeHolderSize_;
    qint64 spent_ = 0;  ///< nanoseconds, since `more_` was called
    bool someWait_ = false;
    std::function<void()> more_;
    QTimer next_;
};

}  // namespace lumarin::qt
