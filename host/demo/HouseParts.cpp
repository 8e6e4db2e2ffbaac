#include "host/demo/SceneParts.h"

#include <QLinearGradient>
#include <QPainterPath>

#include <algorithm>

namespace host {

namespace {

constexpr double StoreyHeight = 52;

/// What a house keeps in every light and from every side.
struct HouseDesign {
    explicit HouseDesign(std::uint32_t seed) {
        static const QColor Walls[] = {{236, 226, 206}, {214, 196, 170}, {186, 98, 78},   {238, 238, 234},
                                       {176, 190, 200}, {226, 204, 150}, {158, 176, 152}, {206, 168, 150}};
        static const QColor Roofs[] = {
            {112, 62, 50}, {78, 80, 88}, {138, 80, 58}, {90, 74, 66}, {64, 84, 96}};
        static const QColor Doors[] = {
            {122, 40, 40}, {40, 72, 104}, {58, 88, 60}, {96, 66, 44}, {36, 40, 48}};
        Chance chance(seed);
        wall = chance.Of(Walls);
        roof = chance.Of(Roofs);
        door = chance.Of(Doors);
        flatRoof = chance.Below(5) == 0;
        hipRoof = chance.Below(3) == 0;
        chimney = chance.Below(3) != 0;
        shutters = chance.Below(2) == 0;
        windowsAcross = 2 + chance.Below(2);
        roofHeight = chance.Between(34, 48);
    }

    QColor wall, roof, door;
    bool flatRoof, hipRoof, chimney, shutters;
    int windowsAcross;
    double roofHeight;
};

void PaintWalls(QPainter& painter, const QRectF& walls, const HouseDesign& design) {
    QLinearGradient gradient(walls.topLeft(), walls.topRight());
    gradient.setColorAt(0, design.wall.lighter(106));
    gradient.setColorAt(1, design.wall.darker(116));
    painter.setBrush(gradient);
    painter.drawRect(walls);
    painter.setPen(QPen(design.wall.darker(112), 0.5));
    for (double y = walls.top() + 5; y < walls.bottom(); y += 5)
        painter.drawLine(QPointF(walls.left(), y), QPointF(walls.right(), y));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(120, 116, 112));
    painter.drawRect(QRectF(walls.left() - 1, walls.bottom() - 5, walls.width() + 2, 6));
}

void PaintRoof(QPainter& painter, const QRectF& walls, const HouseDesign& design) {
    const double eaves = 9;
    if (design.flatRoof) {
        painter.setBrush(design.roof);
        painter.drawRect(QRectF(walls.left() - eaves, walls.top() - 7, walls.width() + 2 * eaves, 8));
        return;
    }
    if (design.chimney) {
        painter.setBrush(QColor(150, 86, 70));
        painter.drawRect(QRectF(walls.left() + walls.width() * 0.72, walls.top() - design.roofHeight - 6, 12,
                                design.roofHeight));
    }
    const double inset = design.hipRoof ? walls.width() * 0.24 : walls.width() * 0.06;
    const QPolygonF shape{{walls.left() - eaves, walls.top() + 2},
                          {walls.left() + inset, walls.top() - design.roofHeight},
                          {walls.right() - inset, walls.top() - design.roofHeight},
                          {walls.right() + eaves, walls.top() + 2}};
    QLinearGradient gradient(0, walls.top() - design.roofHeight, 0, walls.top());
    gradient.setColorAt(0, design.roof.lighter(116));
    gradient.setColorAt(1, design.roof.darker(112));
    painter.setBrush(gradient);
    painter.drawPolygon(shape);
    painter.save();
    QPainterPath clip;
    clip.addPolygon(shape);
    painter.setClipPath(clip, Qt::IntersectClip);
    painter.setPen(QPen(design.roof.darker(130), 0.6));
    bool shifted = false;
    for (double y = walls.top() - design.roofHeight + 5; y < walls.top() + 2; y += 5, shifted = !shifted) {
        painter.drawLine(QPointF(walls.left() - 20, y), QPointF(walls.right() + 20, y));
        for (double x = walls.left() - 12 + (shifted ? 4 : 0); x < walls.right() + 12; x += 8)
            painter.drawLine(QPointF(x, y), QPointF(x, y + 5));
    }
    painter.restore();
}

void PaintWindow(QPainter& painter, const QRectF& frame, const HouseDesign& design, bool lit) {
    constexpr double NarrowestWithShutters = 20;
    if (design.shutters && frame.width() >= NarrowestWithShutters) {
        painter.setBrush(design.door);
        painter.drawRect(frame.adjusted(-7, -1, -frame.width() - 1, 1));
        painter.drawRect(frame.adjusted(frame.width() + 1, -1, 7, 1));
    }
    painter.setBrush(QColor(248, 248, 246));
    painter.drawRect(frame.adjusted(-2, -2, 2, 2));
    QLinearGradient glass(frame.topLeft(), frame.bottomRight());
    glass.setColorAt(0, lit ? QColor(255, 226, 140) : QColor(176, 208, 226));
    glass.setColorAt(0.5, lit ? QColor(255, 206, 104) : QColor(112, 148, 172));
    glass.setColorAt(1, lit ? QColor(240, 170, 80) : QColor(70, 98, 122));
    painter.setBrush(glass);
    painter.drawRect(frame);
    painter.setPen(QPen(QColor(246, 246, 242), 1.2));
    painter.drawLine(QPointF(frame.center().x(), frame.top()), QPointF(frame.center().x(), frame.bottom()));
    painter.drawLine(QPointF(frame.left(), frame.center().y()), QPointF(frame.right(), frame.center().y()));
    painter.setPen(Qt::NoPen);
}

void PaintDoor(QPainter& painter, double center, double foot, const HouseDesign& design) {
    const QRectF leaf(center - 10, foot - 38, 20, 38);
    painter.setBrush(QColor(244, 242, 236));
    painter.drawRect(leaf.adjusted(-3, -3, 3, 0));
    painter.setBrush(design.door);
    painter.drawRect(leaf);
    painter.setBrush(design.door.lighter(130));
    painter.drawRect(QRectF(center - 6, foot - 34, 12, 12));
    painter.drawRect(QRectF(center - 6, foot - 18, 12, 13));
    painter.setBrush(QColor(220, 190, 90));
    painter.drawEllipse(QPointF(center + 6, foot - 19), 1.4, 1.4);
    painter.setBrush(QColor(176, 172, 166));
    painter.drawRect(QRectF(center - 17, foot - 1, 34, 5));
}

void PaintGlassDoor(QPainter& painter, double center, double foot, const HouseDesign& design, bool lit) {
    HouseDesign plain = design;
    plain.shutters = false;
    PaintWindow(painter, QRectF(center - 24, foot - 38, 23, 36), plain, lit);
    PaintWindow(painter, QRectF(center + 1, foot - 38, 23, 36), plain, lit);
}

}  // namespace

void PaintHouse(QPainter& painter, const QRectF& walls, const HouseLook& look) {
    const HouseDesign design(look.seed);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(30, 40, 20, 70));
    painter.drawEllipse(QRectF(walls.left() - 14, walls.bottom() - 8, walls.width() + 40, 18));
    PaintWalls(painter, walls, design);
    PaintRoof(painter, walls, design);

    const int storeys = std::max(1, static_cast<int>(walls.height() / StoreyHeight));
    const double storey = walls.height() / storeys;
    const int columns = design.windowsAcross * 2 + 1;  // The middle one holds the door.
    const double column = walls.width() / columns;
    for (int floor = 0; floor < storeys; ++floor) {
        for (int place = 0; place < columns; ++place) {
            if (place == columns / 2 && floor == storeys - 1) continue;
            const double center = walls.left() + column * (place + 0.5);
            const double size = std::min(column * 0.5, 22.0);
            const QRectF frame(center - size / 2, walls.top() + storey * floor + storey * 0.22, size,
                               storey * 0.46);
            PaintWindow(painter, frame, design, look.lampsLit && (place + floor) % 3 != 0);
        }
    }
    if (look.fromGarden)
        PaintGlassDoor(painter, walls.center().x(), walls.bottom(), design, look.lampsLit);
    else
        PaintDoor(painter, walls.center().x(), walls.bottom(), design);
}

}  // namespace host
