#pragma once

#include "forms/Picture.h"

namespace lumarin::windows {

/// The picture that another program put on the clipboard as a bitmap, of whatever depth; null when there is
/// none or it cannot be read.
PicturePtr ClipboardBitmap();

}  // namespace lumarin::windows
