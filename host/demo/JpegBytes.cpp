#include "host/demo/JpegBytes.h"

#include "base/Error.h"

#include <QBuffer>
#include <QImage>

namespace host {

std::string JpegBytes(const QImage& image, int quality) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "JPEG", quality))
        throw lumarin::Error(lumarin::ApplicationErrorNumber, "demo", "A sample picture cannot be made");
    return buffer.data().toStdString();
}

}  // namespace host
