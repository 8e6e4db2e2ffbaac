#include "platform/system/HostWindow.h"

namespace lumarin::platform {

// Here a host and the component share the toolkit, which knows all of their windows.
void SetOwner(WindowNumber, WindowNumber) {}
WindowPlace PlaceOf(WindowNumber) { return {}; }
WindowPause::WindowPause(WindowNumber window) : window_(window) {}
WindowPause::~WindowPause() = default;

}  // namespace lumarin::platform
