#include "host/demo/FileMoveAnimation.h"

#include "host/demo/JpegBytes.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>

namespace host {

namespace {

constexpr int Width = 272;
constexpr int Height = 60;
constexpr int Frames = 36;
constexpr int FramesPerSecond = 12;
constexpr double Pi = 3.14159265358979;

const QPointF FolderMouth(38, 26);
const QPointF GlobeCenter(236, 31);

void PaintFolderBack(QPainter& painter) {
    painter.setBrush(QColor(214, 160, 54));
    painter.drawRoundedRect(QRectF(14, 17, 22, 12), 3, 3);
    painter.drawRoundedRect(QRectF(14, 21, 48, 32), 3, 3);
}

void PaintFolderFront(QPainter& painter) {
    QLinearGradient gradient(0, 28, 0, 54);
    gradient.setColorAt(0, QColor(255, 216, 118));
    gradient.setColorAt(1, QColor(240, 184, 72));
    painter.setBrush(gradient);
    painter.drawPolygon(QPolygonF{{9, 30}, {58, 30}, {62, 53}, {15, 53}});
}

/// Meridians that wander make the globe turn; one step of a meridian per loop closes it.
void PaintGlobe(QPainter& painter, double phase) {
    const double radius = 23;
    QRadialGradient gradient(GlobeCenter - QPointF(7, 8), radius * 1.5);
    gradient.setColorAt(0, QColor(150, 206, 250));
    gradient.setColorAt(1, QColor(28, 92, 170));
    painter.setBrush(gradient);
    painter.drawEllipse(GlobeCenter, radius, radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 130), 1));
    constexpr int Meridians = 6;
    for (int meridian = 0; meridian < Meridians; ++meridian) {
        const double x = std::cos(Pi * (meridian + phase) / Meridians) * radius;
        QPainterPath path(GlobeCenter - QPointF(0, radius));
        path.quadTo(GlobeCenter + QPointF(x * 2, 0), GlobeCenter + QPointF(0, radius));
        painter.drawPath(path);
    }
    for (const double y : {-11.0, 0.0, 11.0}) {
        const double reach = std::sqrt(radius * radius - y * y);
        painter.drawLine(GlobeCenter + QPointF(-reach, y), GlobeCenter + QPointF(reach, y));
    }
    painter.setPen(Qt::NoPen);
}

/// A sheet with a small picture on it; `way` runs from 0 in the folder to 1 in the globe.
void PaintSheet(QPainter& painter, double way) {
    const double eased = way * way * (3 - 2 * way);
    const QPointF at =
        FolderMouth + (GlobeCenter - FolderMouth) * eased - QPointF(0, std::sin(Pi * way) * 12);
    const double size = way < 0.8 ? 1 : 1 - (way - 0.8) / 0.2 * 0.75;
    painter.save();
    painter.setOpacity(way > 0.92 ? (1 - way) / 0.08 : 1);
    painter.translate(at);
    painter.rotate(-14 + way * 40);
    painter.scale(size, size);
    painter.setBrush(QColor(0, 0, 0, 40));
    painter.drawRect(QRectF(-8.5, -10.5, 20, 25));
    painter.setBrush(Qt::white);
    painter.setPen(QPen(QColor(150, 158, 170), 0.8));
    painter.drawRect(QRectF(-10, -12.5, 20, 25));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(136, 190, 236));
    painter.drawRect(QRectF(-7, -9.5, 14, 11));
    painter.setBrush(QColor(98, 158, 84));
    painter.drawPolygon(QPolygonF{{-7, 1.5}, {-2, -5}, {2, -1}, {4, -3}, {7, 1.5}});
    painter.setBrush(QColor(186, 194, 206));
    painter.drawRect(QRectF(-7, 4.5, 14, 1.4));
    painter.drawRect(QRectF(-7, 7.8, 9, 1.4));
    painter.restore();
}

std::string DrawFrame(int frame) {
    const double phase = static_cast<double>(frame) / Frames;
    QImage image(Width, Height, QImage::Format_RGB32);
    image.fill(QColor(244, 246, 249));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    PaintFolderBack(painter);
    PaintGlobe(painter, phase);
    constexpr int Sheets = 3;
    for (int sheet = Sheets - 1; sheet >= 0; --sheet)
        PaintSheet(painter, std::fmod(phase + static_cast<double>(sheet) / Sheets, 1.0));
    PaintFolderFront(painter);
    painter.end();
    constexpr int Quality = 92;
    return JpegBytes(image, Quality);
}

}  // namespace

Animation DrawFileMove() {
    Animation animation{Width, Height, FramesPerSecond, {}};
    for (int frame = 0; frame < Frames; ++frame) animation.frames.push_back(DrawFrame(frame));
    return animation;
}

}  // namespace host
