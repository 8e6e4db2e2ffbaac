#pragma once

#include <QImage>

#include <cstdint>

namespace host {

/// What a sample photo shows.
enum class Scene { Front, Rear, Evening, LivingRoom, View };

/// Draws a sample photo of a property. The same house for the same `houseSeed`, in another light and
/// weather for another `shotSeed`. Any size; everything scales with the height.
QImage PaintScene(Scene scene, int width, int height, std::uint32_t houseSeed, std::uint32_t shotSeed);

}  // namespace host
