#pragma once

#include <string>

#include "imaging/Imaging.h"

namespace lumarin::vips {

/// The photo at its place on a white canvas; what lies outside of the canvas is cut off.
Picture OnCanvas(const Picture& photo, const CaptureOrder& order);

/// Draws the text into the lower right corner; a blank text draws nothing. Throws VError.
void DrawCaption(Picture& picture, const std::string& caption);

/// The bytes of a baseline JPEG file. Throws VError.
std::string EncodeJpeg(const Picture& picture, const CaptureOrder& order);

}  // namespace lumarin::vips
