#include "platform/qt/adapters/Thumbnails.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>

#include <utility>

#include "platform/qt/Icons.h"

namespace lumarin::qt {

namespace {

constexpr qint64 LongestMaking = 12'000'000;  // nanoseconds: the user sees no pause

/// Paints one pixmap as it is. The toolkit's own engine puts a copy of each thumbnail into the application's
/// cache of pixmaps, where it outlives the list.
class ThumbnailEngine final : public QIconEngine {
public:
    explicit ThumbnailEngine(QPixmap pixmap) : pixmap_(std::move(pixmap)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        painter->drawPixmap(rect, pixmap_);
    }
    QPixmap pixmap(const QSize&, QIcon::Mode, QIcon::State) override { return pixmap_; }
    QIconEngine* clone() const override { return new ThumbnailEngine(*this); }
    bool isNull() override { return pixmap_.isNull(); }

private:
    QPixmap pixmap_;
};

QImage ReadSmall(const QString& file, QSize size) {
    QImageReader reader(file);
    reader.setAutoTransform(true);
    reader.setDecideFormatFromContent(true);
    const QSize full = reader.size();
    // Twice the size keeps the picture sharp when it is scaled to its end size.
    if (full.isValid() && full.width() > 4 * size.width())
        reader.setScaledSize(full.scaled(size * 2, Qt::KeepAspectRatioByExpanding));
    return reader.read();
}

QPixmap Paint(const QString& file, QSize size, double pixelRatio) {
    const QSize physical = (QSizeF(size) * pixelRatio).toSize();
    QPixmap canvas(physical);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    const QImage picture = ReadSmall(file, physical);
    if (picture.isNull()) {
        ToolIcon("image-x-generic").paint(&painter, canvas.rect().adjusted(4, 4, -4, -4));
    } else {
        const QImage small = picture.scaled(physical, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        painter.drawImage((physical.width() - small.width()) / 2, (physical.height() - small.height()) / 2,
                          small);
    }
    painter.end();
    canvas.setDevicePixelRatio(pixelRatio);
    return canvas;
}

}  // namespace

QIcon MakeThumbnail(const QString& file, QSize size, double pixelRatio) {
    return QIcon(new ThumbnailEngine(Paint(file, size, pixelRatio)));
}

Thumbnails::Thumbnails(std::function<void()> more) : more_(std::move(more)) {
    next_.setSingleShot(true);
    next_.setInterval(0);
    connect(&next_, &QTimer::timeout, this, [this] {
        spent_ = 0;
        if (std::exchange(someWait_, false)) more_();
    });
}

QIcon Thumbnails::Of(const QString& file, QSize size, double pixelRatio) {
    const QFileInfo info(file);
    const QString key = QStringLiteral("%1|%2|%3|%4x%5@%6")
                            .arg(info.path())
                            .arg(info.size())
                            .arg(info.lastModified().toMSecsSinceEpoch())
                            .arg(size.width())
                            .arg(size.height())
                            .arg(pixelRatio);
    if (const QIcon* made = made_.object(key)) return *made;
    next_.start();
    if (spent_ > LongestMaking) {
        someWait_ = true;
        if (std::exchange(placeHolderSize_, size) != size) placeHolder_ = MakeThumbnail({}, size, pixelRatio);
        return placeHolder_;
    }
    QElapsedTimer clock;
    clock.start();
    QIcon thumbnail = MakeThumbnail(file, size, pixelRatio);
    spent_ += clock.nsecsElapsed();
    made_.insert(key, new QIcon(thumbnail));
    return thumbnail;
}

}  // namespace lumarin::qt
