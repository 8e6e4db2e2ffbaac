#pragma once

#include <QImage>
#include <QRect>
#include <QString>

#include <string>
#include <vector>

#include "forms/Geometry.h"
#include "forms/Input.h"
#include "forms/Picture.h"

class QKeyEvent;
class QMimeData;
class QMouseEvent;

/// Between the component's plain types and the toolkit's. Pixels are the toolkit's logical pixels.
namespace lumarin::qt {

/// An unpaired surrogate survives both ways.
QString ToQt(const std::string& utf8);
std::string FromQt(const QString& text);
/// A path with the system's separators, where the toolkit writes "/" everywhere.
std::string PathFromQt(const QString& path);

int ToPixels(double twips);
QRect ToPixels(const Rect& twips);
Rect ToTwips(const QRect& pixels);

/// The button that went down or up; None for a button that the component does not know.
Mouse PressedMouse(const QMouseEvent& event);
/// The button that is held while the mouse moves.
Mouse MovedMouse(const QMouseEvent& event);
/// Key::None for a key that has no number.
KeyDown ToKeyDown(const QKeyEvent& event);

/// Shares the pixels, which stay alive as long as the image; a null image for null or an empty picture.
QImage ToImage(const PicturePtr& picture);
/// 24 bits per pixel, alpha laid on white.
Picture ToPicture(const QImage& image);

/// Full paths of the files among the dropped or pasted data; other addresses are left out, and so are those
/// that no file can have.
std::vector<std::string> FilesOf(const QMimeData& data);

}  // namespace lumarin::qt
