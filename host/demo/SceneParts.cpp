#include "host/demo/SceneParts.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace host {

namespace {

QColor Varied(const QColor& colour, Chance& chance, int amount) {
    const int change = chance.Below(2 * amount + 1) - amount;
    const auto channel = [change](int value) { return std::clamp(value + change, 0, 255); };
    return {channel(colour.red()), channel(colour.green()), channel(colour.blue())};
}

void PaintCloud(QPainter& painter, double x, double y, double size, int opacity, Chance& chance) {
    for (int puff = 0; puff < 7; ++puff) {
        const QPointF center(x + chance.Between(-size, size), y + chance.Between(-size, size) * 0.16);
        const double radius = size * chance.Between(0.35, 0.6);
        QRadialGradient gradient(center, radius);
        gradient.setColorAt(0, QColor(255, 255, 255, opacity));
        gradient.setColorAt(1, QColor(255, 255, 255, 0));
        painter.setBrush(gradient);
        painter.drawEllipse(center, radius, radius * 0.5);
    }
}

/// Many small strokes of slightly different colour make a surface of leaves.
void PaintLeaves(QPainter& painter, const QPointF& center, double width, double height, const QColor& base,
                 Chance& chance) {
    constexpr int Leaves = 170;
    for (int leaf = 0; leaf < Leaves; ++leaf) {
        const double angle = chance.Between(0, 6.2832);
        const double reach = std::sqrt(chance.Between(0, 1));
        const QPointF at =
            center + QPointF(std::cos(angle) * reach * width, std::sin(angle) * reach * height);
        const bool inLight = at.x() + at.y() < center.x() + center.y();
        painter.setBrush(Varied(inLight ? base.lighter(118) : base.darker(118), chance, 12));
        const double size = chance.Between(0.09, 0.2) * std::min(width, height);
        painter.drawEllipse(at, size * 1.2, size);
    }
}

}  // namespace

void PaintSky(QPainter& painter, double width, double horizon, const Light& light, Chance& chance) {
    QLinearGradient gradient(0, 0, 0, horizon);
    gradient.setColorAt(0, light.skyTop);
    gradient.setColorAt(1, light.skyBottom);
    painter.fillRect(QRectF(0, 0, width, horizon + 1), gradient);
    painter.setPen(Qt::NoPen);
    const int clouds = 2 + chance.Below(4);
    for (int cloud = 0; cloud < clouds; ++cloud)
        PaintCloud(painter, chance.Between(0, width), chance.Between(15, horizon * 0.6),
                   chance.Between(25, 55), light.lampsLit ? 40 : 150, chance);
}

void PaintHills(QPainter& painter, double width, double horizon, Chance& chance) {
    for (int range = 0; range < 3; ++range) {
        const double base = horizon - 22 + range * 11;
        const double phase = chance.Between(0, 6.28);
        QPainterPath path(QPointF(0, horizon + 1));
        for (double x = 0; x <= width + 4; x += 4)
            path.lineTo(
                x, base - 9 * std::sin(x / (55 - range * 12) + phase) - 4 * std::sin(x / 17 + phase * 2));
        path.lineTo(width + 4, horizon + 1);
        painter.setBrush(QColor(128 - range * 24, 158 - range * 14, 150 - range * 34));
        painter.drawPath(path);
    }
}

void PaintLawn(QPainter& painter, double width, double top, Chance& chance) {
    const QColor base(90 + chance.Below(25), 140 + chance.Below(20), 62);
    QLinearGradient gradient(0, top, 0, 300);
    gradient.setColorAt(0, base.lighter(112));
    gradient.setColorAt(1, base.darker(125));
    painter.fillRect(QRectF(0, top, width, 301 - top), gradient);
    constexpr int Blades = 1500;
    for (int blade = 0; blade < Blades; ++blade) {
        const double depth = chance.Between(0, 1);
        const double x = chance.Between(0, width);
        const double y = top + (300 - top) * depth;
        QColor colour = Varied(base, chance, 22);
        colour.setAlpha(150);
        painter.setPen(QPen(colour, 0.4 + depth * 0.5));
        painter.drawLine(QPointF(x, y), QPointF(x + chance.Between(-1.5, 1.5), y - 1.5 - depth * 4));
    }
    painter.setPen(Qt::NoPen);
}

void PaintTree(QPainter& painter, double x, double foot, double height, Chance& chance) {
    painter.setBrush(QColor(92, 70, 52));
    painter.drawRect(QRectF(x - height * 0.03, foot - height * 0.45, height * 0.06, height * 0.45));
    const QColor leaves(58 + chance.Below(50), 104 + chance.Below(30), 48);
    if (chance.Below(3) == 0) {
        for (int layer = 0; layer < 4; ++layer) {
            const double top = foot - height + layer * height * 0.2;
            const double reach = height * (0.13 + layer * 0.055);
            painter.setBrush(QColor(40, 84 + layer * 8, 58));
            painter.drawPolygon(
                QPolygonF{{x, top}, {x + reach, top + height * 0.3}, {x - reach, top + height * 0.3}});
        }
        return;
    }
    for (int crown = 0; crown < 5; ++crown)
        PaintLeaves(painter,
                    {x + chance.Between(-0.2, 0.2) * height, foot - height * chance.Between(0.5, 0.82)},
                    height * 0.2, height * 0.17, leaves, chance);
}

void PaintBush(QPainter& painter, double x, double foot, double size, Chance& chance) {
    const QColor leaves(70 + chance.Below(40), 112 + chance.Below(24), 56);
    PaintLeaves(painter, {x, foot - size * 0.35}, size * 0.7, size * 0.4, leaves, chance);
    static const QColor Blossoms[] = {{232, 92, 110}, {246, 206, 90}, {238, 238, 246}, {170, 110, 196}};
    painter.setBrush(chance.Of(Blossoms));
    for (int blossom = 0; blossom < 9; ++blossom)
        painter.drawEllipse(
            QPointF(x + chance.Between(-0.6, 0.6) * size, foot - chance.Between(0.1, 0.65) * size), 1.1, 1.1);
}

}  // namespace host
