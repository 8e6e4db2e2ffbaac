#pragma once

#include <string>

#include "entry/VelCommon.h"
#include "forms/Geometry.h"

namespace lumarin {

/// What the photo window reads when it starts.
struct WindowSettings {
    std::string photoSize;
    bool filePreview = true;
    int photoMaximum = 4;  ///< 0 to the number of photo slots
    bool sortNames = false;
    std::string importFolder;
    std::string startUpPosition;
    std::string photoView;  ///< how the user has the photo list shown; "" when nothing is stored
};

WindowSettings ReadWindowSettings(const VelCommon& host);

void WriteFilePreview(const VelCommon& host, bool filePreview);

/// The stored position ("left,top" in twips), pulled back where the window would pass the right or bottom
/// edge of the screen. Only left and top of the result count. A text that is not a position gives the
/// default.
Rect PositionOnScreen(const std::string& position, const Rect& window, Size screen);

/// Whether the window stands where the stored position says, pulled back or not.
bool StandsAt(const std::string& position, const Rect& window);

void WriteStartUpPosition(const VelCommon& host, const Rect& window);

void WritePhotoView(const VelCommon& host, const std::string& photoView);

void WriteImportFolder(const VelCommon& host, const std::string& folder);

}  // namespace lumarin
