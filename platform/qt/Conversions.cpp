#include "platform/qt/Conversions.h"

#include <QDir>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QUrl>

#include <cmath>
#include <cstring>

#include "base/Text.h"

namespace lumarin::qt {

namespace {

Mouse MouseAt(const QMouseEvent& event, bool left, bool right) {
    const QPointF place = event.position() * TwipsPerPixel;
    return {left ? MouseButton::Left : right ? MouseButton::Right : MouseButton::None, place.x(), place.y()};
}

Key ToKey(int key) {
    // Letters and digits have the numbers of their characters.
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
        return static_cast<Key>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return static_cast<Key>(static_cast<int>(Key::F1) + key - Qt::Key_F1);
    switch (key) {
        case Qt::Key_Backspace:
            return Key::Back;
        case Qt::Key_Tab:
            return Key::Tab;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return Key::Enter;
        case Qt::Key_Escape:
            return Key::Escape;
        case Qt::Key_Space:
            return Key::Space;
        case Qt::Key_PageUp:
            return Key::PageUp;
        case Qt::Key_PageDown:
            return Key::PageDown;
        case Qt::Key_End:
            return Key::End;
        case Qt::Key_Home:
            return Key::Home;
        case Qt::Key_Left:
            return Key::Left;
        case Qt::Key_Up:
            return Key::Up;
        case Qt::Key_Right:
            return Key::Right;
        case Qt::Key_Down:
            return Key::Down;
        case Qt::Key_Insert:
            return Key::Insert;
        case Qt::Key_Delete:
            return Key::Delete;
        case Qt::Key_Equal:  // has the plus above it on many keyboards
        case Qt::Key_Plus:
            return Key::Plus;
        case Qt::Key_Minus:
            return Key::Minus;
        default:
            return Key::None;
    }
}

}  // namespace

QString ToQt(const std::string& utf8) { return QString::fromStdU16String(text::ToUtf16(utf8)); }

std::string FromQt(const QString& text) { return text::FromUtf16(text.toStdU16String()); }

std::string PathFromQt(const QString& path) { return FromQt(QDir::toNativeSeparators(path)); }

int ToPixels(double twips) { return static_cast<int>(std::lround(twips / TwipsPerPixel)); }

QRect ToPixels(const Rect& twips) {
    return {ToPixels(twips.left), ToPixels(twips.top), ToPixels(twips.width), ToPixels(twips.height)};
}

Rect ToTwips(const QRect& pixels) {
    return {pixels.x() * TwipsPerPixel, pixels.y() * TwipsPerPixel, pixels.width() * TwipsPerPixel,
            pixels.height() * TwipsPerPixel};
}

Mouse PressedMouse(const QMouseEvent& event) {
    return MouseAt(event, event.button() == Qt::LeftButton, event.button() == Qt::RightButton);
}

Mouse MovedMouse(const QMouseEvent& event) {
    return MouseAt(event, event.buttons().testFlag(Qt::LeftButton),
                   event.buttons().testFlag(Qt::RightButton));
}

KeyDown ToKeyDown(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    return {ToKey(event.key()), modifiers.testFlag(Qt::ShiftModifier),
            modifiers.testFlag(Qt::ControlModifier), modifiers.testFlag(Qt::AltModifier)};
}

QImage ToImage(const PicturePtr& picture) {
    if (picture == nullptr || picture->IsEmpty()) return {};
    const qsizetype rowBytes = qsizetype{3} * picture->width;
    if (static_cast<qsizetype>(picture->pixels.size()) < rowBytes * picture->height) return {};
    auto* owner = new PicturePtr(picture);
    return QImage(
        picture->pixels.data(), picture->width, picture->height, rowBytes, QImage::Format_RGB888,
        [](void* kept) { delete static_cast<PicturePtr*>(kept); }, owner);
}

Picture ToPicture(const QImage& image) {
    if (image.isNull()) return {};
    QImage opaque = image;
    if (image.hasAlphaChannel()) {
        opaque = QImage(image.size(), QImage::Format_RGB32);
        opaque.fill(Qt::white);
        QPainter painter(&opaque);
        painter.drawImage(opaque.rect(), image);
    }
    opaque = opaque.convertToFormat(QImage::Format_RGB888);
    Picture picture{opaque.width(), opaque.height(), {}};
    const auto rowBytes = static_cast<std::size_t>(picture.width) * 3;
    picture.pixels.resize(rowBytes * static_cast<std::size_t>(picture.height));
    for (int y = 0; y < picture.height; ++y)
        std::memcpy(picture.pixels.data() + rowBytes * static_cast<std::size_t>(y), opaque.constScanLine(y),
                    rowBytes);
    return picture;
}

std::vector<std::string> FilesOf(const QMimeData& data) {
    QList<QUrl> urls = data.urls();
    // Some file managers say only in their own way what was copied: a word, then an address on each line.
    if (urls.isEmpty())
        for (const QByteArray& line : data.data("x-special/gnome-copied-files").split('\n').mid(1))
            urls.append(QUrl::fromEncoded(line.trimmed()));
    std::vector<std::string> paths;
    for (const QUrl& url : urls) {
        if (!url.isLocalFile()) continue;
        const QString path = url.toLocalFile();
        if (!path.isEmpty() && !path.contains(QChar::Null)) paths.push_back(PathFromQt(path));
    }
    return paths;
}

}  // namespace lumarin::qt
