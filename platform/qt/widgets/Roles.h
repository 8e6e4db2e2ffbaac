#pragma once

namespace lumarin::qt {

/// Screen readers hear from now on what our own widgets are: pictures, films, groups. Call before any window.
void NameRoles();

}  // namespace lumarin::qt
