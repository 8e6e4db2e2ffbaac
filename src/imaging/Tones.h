#pragma once

#include "forms/Picture.h"
#include "imaging/Imaging.h"

namespace lumarin {

/// The tone table of an intensity and a contrast change, both from -500 to 500, intensity applied first.
///
/// Intensity i moves towards white or black: v + (255 - v) * i/1000 for i > 0, v + v * i/1000 for i < 0.
/// Contrast c turns the line about the middle grey: 127.5 + (v - 127.5) * f with f = 1 + c/1000 for
/// c < 0 and f = 1 + c/250 for c > 0. The result is rounded half to even and kept within 0 to 255. Zero
/// changes nothing, and at either end of both ranges the picture can still be recognised.
ToneTable MakeToneTable(int intensity, int contrast);

/// Values of the two sliders.
struct ToneChange {
    int intensity = 0;
    int contrast = 0;
    bool operator==(const ToneChange&) const = default;
};

/// The change that spreads the picture's brightness over the whole range, leaving out its few darkest and
/// brightest pixels; nothing for a picture of one colour. Never so much that it looks forced.
ToneChange AutomaticTones(const Picture& picture);

/// The table that changes nothing.
ToneTable PlainTones();

/// A copy of the picture with every colour value replaced by the table's.
Picture WithTones(const Picture& picture, const ToneTable& tones);

}  // namespace lumarin
