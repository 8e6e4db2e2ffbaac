#include "platform/qt/Icons.h"

#include <QAbstractButton>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <iterator>

#include "platform/qt/widgets/PictureWidget.h"

namespace lumarin::qt {

namespace {

QString FileOf(const QString& name, int size) { return QString(":/icons/%1/%2.png").arg(size).arg(name); }

constexpr int Sizes[] = {LUMARIN_ICON_SIZES};  // pixels, ascending

/// What a drawing's colour of its own stands for, alike on light and dark.
QColor OwnColour(const QString& name) { return name == "dialog-error" ? "#d13438" : "#c98a00"; }

/// Whole shares (255) of three colours, as a pixel of that mixture.
QRgb Mix(QRgb shares, QRgb line, QRgb own, QRgb accent) {
    const auto channel = [&](int (*part)(QRgb)) {
        return std::min(
            255,
            (qRed(shares) * part(line) + qGreen(shares) * part(own) + qBlue(shares) * part(accent)) / 255);
    };
    return qRgba(channel(qRed), channel(qGreen), channel(qBlue), qAlpha(shares));
}

/// Paints a line drawing in the colours of the palette. The build has drawn it in the sizes of screens; the
/// channels of its pixels are the shares of the colours.
class DrawingEngine final : public QIconEngine {
public:
    explicit DrawingEngine(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const qreal ratio = painter->device()->devicePixelRatioF();
        const int side = std::min(rect.width(), rect.height());
        QImage image = Drawn(std::max(1, qRound(side * ratio)), mode);
        image.setDevicePixelRatio(ratio);
        QRect place(0, 0, side, side);
        place.moveCenter(rect.center());
        painter->drawImage(place.topLeft(), image);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect({}, size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new DrawingEngine(*this); }
    bool isNull() override { return false; }

private:
    /// `side` pixels wide and high.
    QImage Drawn(int side, QIcon::Mode mode) const {
        const auto* size = std::lower_bound(std::begin(Sizes), std::prev(std::end(Sizes)), side);
        QImage image(FileOf(name_, *size));
        image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        const QPalette palette = QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto text = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
        const QRgb line = palette.color(group, text).rgb();
        const bool coloured = mode == QIcon::Normal || mode == QIcon::Active;
        const QRgb accent = coloured ? palette.color(QPalette::Link).rgb() : line;
        const QRgb own = OwnColour(name_).rgb();
        for (int y = 0; y < image.height(); ++y) {
            auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
            std::transform(row, row + image.width(), row,
                           [&](QRgb shares) { return Mix(shares, line, own, accent); });
        }
        return *size == side ? image
                             : image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }

    QString name_;
};

}  // namespace

QIcon ToolIcon(const QString& name) {
    if (QIcon::hasThemeIcon(name)) return QIcon::fromTheme(name);
    return QFile::exists(FileOf(name, Sizes[0])) ? QIcon(new DrawingEngine(name)) : QIcon();
}

void ApplyIconNames(QWidget& window) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const QString name = widget->property("iconName").toString();
        if (name.isEmpty()) continue;
        if (auto* button = qobject_cast<QAbstractButton*>(widget)) button->setIcon(ToolIcon(name));
        if (auto* picture = dynamic_cast<PictureWidget*>(widget))
            picture->SetIcon(ToolIcon(name), widget->property("iconIsPicture").toBool()
                                                 ? PictureWidget::IconUse::Picture
                                                 : PictureWidget::IconUse::PlaceHolder);
    }
}

}  // namespace lumarin::qt
