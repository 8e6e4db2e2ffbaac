#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>

#include <cstdint>
#include <random>

namespace host {

/// Repeatable choices.
class Chance {
public:
    explicit Chance(std::uint32_t seed) : engine_(seed * 2654435761U + 1U) {}

    double Between(double low, double high) {
        return low + (high - low) * (static_cast<double>(engine_()) / 4294967296.0);
    }
    int Below(int count) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(count)); }
    template <class Item, std::size_t Count>
    const Item& Of(const Item (&items)[Count]) {
        return items[engine_() % Count];
    }

private:
    std::mt19937 engine_;
};

/// The light in which a scene stands.
struct Light {
    QColor skyTop, skyBottom;
    QColor tint;  ///< Laid over everything, with its own opacity.
    bool lampsLit = false;
};

/// Parts of an outdoor scene, drawn on a canvas 300 units high; `width` is the canvas's.
void PaintSky(QPainter& painter, double width, double horizon, const Light& light, Chance& chance);
void PaintHills(QPainter& painter, double width, double horizon, Chance& chance);
void PaintLawn(QPainter& painter, double width, double top, Chance& chance);
void PaintTree(QPainter& painter, double x, double foot, double height, Chance& chance);
void PaintBush(QPainter& painter, double x, double foot, double size, Chance& chance);

/// The house of a seed on the ground line `foot`, seen from the street or from the garden.
struct HouseLook {
    std::uint32_t seed = 0;
    bool fromGarden = false;
    bool lampsLit = false;
};
void PaintHouse(QPainter& painter, const QRectF& walls, const HouseLook& look);

}  // namespace host
