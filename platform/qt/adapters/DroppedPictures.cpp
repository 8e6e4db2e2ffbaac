#include "platform/qt/adapters/DroppedPictures.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QMimeData>
#include <QRegularExpression>
#include <QUrl>

#include "platform/qt/Conversions.h"

namespace lumarin::qt {

namespace {

constexpr int LongestName = 80;  // characters

/// How programs hand over the bytes of a picture's file. One that offers several has converted it: those that
/// lose nothing come first.
constexpr const char* PictureFormats[] = {
    "image/png",  "image/tiff", "image/webp",
    "image/jpeg", "image/gif",  "image/heic",
    "image/heif", "image/avif", "application/x-qt-windows-mime;value=\"FileContents\"",
};

/// The picture in an address "data:image/png;base64,...".
QByteArray PictureInAddress(const QUrl& url) {
    const QByteArray address = url.toEncoded();
    const qsizetype comma = address.indexOf(',');
    if (url.scheme() != "data" || !address.startsWith("data:image/") || comma < 0) return {};
    const QByteArray bytes = QByteArray::fromPercentEncoding(address.mid(comma + 1));
    return address.left(comma).endsWith(";base64") ? QByteArray::fromBase64(bytes) : bytes;
}

QByteArray PictureBytes(const QMimeData& data) {
    for (const char* format : PictureFormats)
        if (QByteArray bytes = data.data(format); !bytes.isEmpty()) return bytes;
    for (const QUrl& url : data.urls())
        if (QByteArray bytes = PictureInAddress(url); !bytes.isEmpty()) return bytes;
    QByteArray bytes;
    if (const auto image = data.imageData().value<QImage>(); !image.isNull()) {
        QBuffer buffer(&bytes);
        image.save(&buffer, "PNG");
    }
    // A browser's name for a file of whatever kind. The import tells a picture from anything else.
    return bytes.isEmpty() ? data.data("application/octet-stream") : bytes;
}

/// The name that the picture has on the web, which may say what it shows.
QString NameOf(const QMimeData& data) {
    static const QRegularExpression notOfNames(QStringLiteral("[\\x00-\\x1F/\\\\:*?\"<>|]"));
    for (const QUrl& url : data.urls())
        if (QString name = url.fileName().remove(notOfNames).right(LongestName);
            url.scheme() != "data" && !name.isEmpty() && !name.startsWith('.'))
            return name;
    return QStringLiteral("picture");
}

}  // namespace

Dropped TakeDropped(const QMimeData& data) {
    if (std::vector<std::string> files = FilesOf(data); !files.empty()) return {std::move(files)};
    const QByteArray bytes = PictureBytes(data);
    if (bytes.isEmpty()) return {};
    auto folder = std::make_shared<QTemporaryDir>();
    QFile file(folder->filePath(NameOf(data)));
    const bool isWritten = folder->isValid() && file.open(QIODevice::WriteOnly) &&
                           file.write(bytes) == bytes.size() && file.flush();
    if (!isWritten) return {};
    return {{PathFromQt(file.fileName())}, std::move(folder)};
}

}  // namespace lumarin::qt
