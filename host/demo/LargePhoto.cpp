#include "host/demo/LargePhoto.h"

#include "base/Error.h"
#include "host/demo/ScenePainter.h"

#include <QImageWriter>

namespace host {

void DrawLargePhoto(const std::string& path, int width, int height, std::uint32_t seed) {
    constexpr int CameraQuality = 90;
    constexpr Scene Scenes[] = {Scene::Front, Scene::Rear, Scene::View};
    QImageWriter writer(QString::fromStdString(path), "jpeg");
    writer.setQuality(CameraQuality);
    if (!writer.write(PaintScene(Scenes[seed % std::size(Scenes)], width, height, seed, seed + 1)))
        throw lumarin::FileError("write", path, writer.errorString().toStdString());
}

}  // namespace host
