#include "host/demo/ScenePainter.h"

#include "host/demo/SceneParts.h"

#include <QLinearGradient>
#include <QPainterPath>

#include <algorithm>

namespace host {

namespace {

constexpr double CanvasHeight = 300;

const Light Daylights[] = {
    {{96, 156, 220}, {214, 232, 244}, {255, 250, 230, 14}, false},
    {{70, 130, 206}, {196, 222, 244}, {255, 255, 255, 0}, false},
    {{140, 164, 188}, {222, 226, 230}, {150, 160, 176, 30}, false},
    {{112, 150, 206}, {250, 214, 176}, {255, 186, 110, 38}, false},
};
const Light Dusk = {{44, 62, 122}, {250, 178, 120}, {20, 26, 74, 66}, true};

void PaintPath(QPainter& painter, double center, double foot, double spread) {
    QLinearGradient gradient(0, foot, 0, CanvasHeight);
    gradient.setColorAt(0, QColor(200, 192, 180));
    gradient.setColorAt(1, QColor(172, 164, 154));
    painter.setBrush(gradient);
    painter.drawPolygon(QPolygonF{{center - 12, foot},
                                  {center + 12, foot},
                                  {center + spread, CanvasHeight + 1},
                                  {center - spread, CanvasHeight + 1}});
}

void PaintPool(QPainter& painter, double center, double top, double width) {
    painter.setBrush(QColor(214, 206, 192));
    painter.drawEllipse(QRectF(center - width / 2 - 8, top - 4, width + 16, 44));
    QLinearGradient gradient(center - width / 2, 0, center + width / 2, 0);
    gradient.setColorAt(0, QColor(60, 158, 196));
    gradient.setColorAt(1, QColor(126, 208, 226));
    painter.setBrush(gradient);
    painter.drawEllipse(QRectF(center - width / 2, top, width, 36));
}

void PaintFence(QPainter& painter, double width, double foot) {
    painter.setBrush(QColor(182, 150, 116));
    painter.drawRect(QRectF(0, foot - 18, width, 2.5));
    painter.drawRect(QRectF(0, foot - 8, width, 2.5));
    for (double x = 2; x < width; x += 8) painter.drawRect(QRectF(x, foot - 23, 5, 23));
}

void PaintOutside(QPainter& painter, double width, const Light& light, const HouseLook& look,
                  Chance& chance) {
    Chance house(look.seed);
    const double horizon = 178;
    PaintSky(painter, width, horizon, light, chance);
    PaintHills(painter, width, horizon, house);
    PaintLawn(painter, width, horizon, house);
    const double height = house.Below(3) == 0 ? 62 : 104;
    const double breadth = house.Between(200, 250);
    const double center = width / 2 + house.Between(-30, 30);
    const double foot = 226;
    if (look.fromGarden) PaintFence(painter, width, foot - 16);
    PaintTree(painter, center - breadth / 2 - house.Between(36, 58), foot - 6, house.Between(110, 165),
              house);
    PaintTree(painter, center + breadth / 2 + house.Between(34, 56), foot - 10, house.Between(100, 150),
              house);
    PaintHouse(painter, QRectF(center - breadth / 2, foot - height, breadth, height), look);
    for (int bush = 0; bush < 6; ++bush) {
        const int fromHouse = 34 + 34 * (bush / 2);
        const double offset = bush % 2 == 0 ? -fromHouse : fromHouse;
        PaintBush(painter, center + offset, foot + 3, house.Between(14, 22), house);
    }
    if (look.fromGarden)
        PaintPool(painter, center + house.Between(-50, 50), 242, 150);
    else
        PaintPath(painter, center, foot + 3, 46);
    painter.fillRect(QRectF(0, 0, width, CanvasHeight), light.tint);
}

void PaintView(QPainter& painter, double width, const Light& light, Chance& house, Chance& chance) {
    PaintSky(painter, width, 150, light, chance);
    PaintHills(painter, width, 150, house);
    QLinearGradient water(0, 150, 0, 230);
    water.setColorAt(0, light.skyBottom.darker(108));
    water.setColorAt(1, light.skyTop.darker(120));
    painter.fillRect(QRectF(0, 149, width, 90), water);
    for (int glint = 0; glint < 260; ++glint) {
        painter.setBrush(QColor(255, 255, 255, 30 + chance.Below(60)));
        painter.drawRect(
            QRectF(chance.Between(0, width), chance.Between(152, 236), chance.Between(4, 18), 0.8));
    }
    PaintLawn(painter, width, 228, house);
    for (int tree = 0; tree < 6; ++tree)
        PaintTree(painter, chance.Between(0, width), 236 + tree * 7, chance.Between(50, 110), house);
    painter.fillRect(QRectF(0, 0, width, CanvasHeight), light.tint);
}

void PaintFloor(QPainter& painter, double width, double top, const QColor& wood) {
    painter.fillRect(QRectF(0, top, width, CanvasHeight - top + 1), wood);
    painter.setPen(QPen(wood.darker(122), 0.7));
    for (double y = top; y < CanvasHeight; y += 4 + (y - top) * 0.09)
        painter.drawLine(QPointF(0, y), QPointF(width, y));
    for (int board = -14; board <= 14; ++board)
        painter.drawLine(QPointF(width / 2 + board * 26, top), QPointF(width / 2 + board * 70, CanvasHeight));
    painter.setPen(Qt::NoPen);
}

void PaintSofa(QPainter& painter, double left, double foot, const QColor& cloth) {
    painter.setBrush(cloth.darker(112));
    painter.drawRoundedRect(QRectF(left, foot - 62, 170, 46), 8, 8);
    painter.setBrush(cloth);
    for (int seat = 0; seat < 2; ++seat)
        painter.drawRoundedRect(QRectF(left + 14 + seat * 72, foot - 36, 70, 22), 5, 5);
    painter.setBrush(cloth.darker(125));
    painter.drawRoundedRect(QRectF(left - 6, foot - 44, 20, 38), 6, 6);
    painter.drawRoundedRect(QRectF(left + 158, foot - 44, 20, 38), 6, 6);
    painter.drawRect(QRectF(left + 4, foot - 16, 164, 10));
    painter.setBrush(QColor(230, 180, 90));
    painter.drawRoundedRect(QRectF(left + 22, foot - 54, 26, 24), 4, 4);
}

void PaintLivingRoom(QPainter& painter, double width, const Light& light, Chance& house, Chance& chance) {
    static const QColor Walls[] = {{236, 230, 220}, {222, 228, 222}, {228, 216, 204}, {214, 222, 230}};
    static const QColor Cloths[] = {{90, 110, 136}, {150, 96, 84}, {120, 128, 112}, {172, 160, 144}};
    const QColor wall = house.Of(Walls);
    QLinearGradient shade(0, 0, width, 0);
    shade.setColorAt(0, wall.darker(112));
    shade.setColorAt(0.5, wall);
    shade.setColorAt(1, wall.darker(106));
    painter.fillRect(QRectF(0, 0, width, 210), shade);
    PaintFloor(painter, width, 206, QColor(170, 126 + house.Below(20), 88));
    painter.fillRect(QRectF(0, 202, width, 6), QColor(246, 244, 240));

    const QRectF window(width * 0.5 + 10, 40, 150, 110);
    painter.fillRect(window.adjusted(-6, -6, 6, 6), QColor(250, 250, 248));
    painter.save();
    painter.setClipRect(window, Qt::IntersectClip);
    painter.translate(window.left(), -26);
    PaintSky(painter, 160, 150, light, chance);
    PaintHills(painter, 160, 150, house);
    PaintLawn(painter, 160, 149, house);
    PaintTree(painter, 40, 190, 90, house);
    painter.restore();
    painter.fillRect(QRectF(window.center().x() - 2, window.top(), 4, window.height()),
                     QColor(250, 250, 248));
    painter.setBrush(QColor(255, 250, 226, 46));
    painter.drawPolygon(QPolygonF{
        {window.left(), 212}, {window.right(), 212}, {window.right() - 30, 300}, {window.left() - 90, 300}});

    painter.setBrush(QColor(70, 60, 54));
    painter.drawRect(QRectF(width * 0.5 - 150, 52, 84, 60));
    painter.setBrush(QColor(150 + house.Below(80), 140 + house.Below(60), 110));
    painter.drawRect(QRectF(width * 0.5 - 145, 57, 74, 50));
    PaintSofa(painter, width * 0.5 - 180, 244, house.Of(Cloths));
    painter.setBrush(QColor(120, 84, 58));
    painter.drawEllipse(QRectF(width * 0.5 - 60, 256, 130, 24));
    PaintBush(painter, width * 0.5 + 190, 226, 44, house);
    painter.setBrush(QColor(188, 110, 84));
    painter.drawRect(QRectF(width * 0.5 + 176, 224, 28, 24));
}

/// The grain that a camera leaves, so that the picture behaves as a photo does when it is compressed.
void AddGrain(QImage& image, std::uint32_t seed) {
    constexpr int LargeHeight = 2000;
    const std::uint32_t amount = image.height() >= LargeHeight ? 19 : 7;
    std::uint32_t state = seed | 1U;
    for (int y = 0; y < image.height(); ++y) {
        auto* pixel = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x, ++pixel) {
            state ^= state << 13;
            state ^= state >> 17;
            state ^= state << 5;
            const int change = static_cast<int>((state >> 8) % amount) - static_cast<int>(amount / 2);
            const auto channel = [change](int value) { return std::clamp(value + change, 0, 255); };
            *pixel = qRgb(channel(qRed(*pixel)), channel(qGreen(*pixel)), channel(qBlue(*pixel)));
        }
    }
}

}  // namespace

QImage PaintScene(Scene scene, int width, int height, std::uint32_t houseSeed, std::uint32_t shotSeed) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    Chance chance(shotSeed);
    Chance house(houseSeed);
    const Light light = scene == Scene::Evening ? Dusk : chance.Of(Daylights);
    const double scale = height / CanvasHeight;
    const double canvasWidth = width / scale;
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        painter.setPen(Qt::NoPen);
        switch (scene) {
            case Scene::Front:
            case Scene::Rear:
            case Scene::Evening:
                PaintOutside(painter, canvasWidth, light, {houseSeed, scene == Scene::Rear, light.lampsLit},
                             chance);
                break;
            case Scene::LivingRoom:
                PaintLivingRoom(painter, canvasWidth, light, house, chance);
                break;
            case Scene::View:
                PaintView(painter, canvasWidth, light, house, chance);
                break;
        }
    }
    AddGrain(image, shotSeed * 747796405U + houseSeed);
    return image;
}

}  // namespace host
