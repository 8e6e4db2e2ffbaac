#pragma once

#include <QPalette>

namespace lumarin::qt {

enum class Theme { Light, Dark };

/// The program's colours. Text has a contrast of at least 4.5 to what it stands on, the focus of 3.
QPalette PaletteOf(Theme theme);

/// The colour of the line around what has the focus.
constexpr QPalette::ColorRole FocusColour = QPalette::Link;

}  // namespace lumarin::qt
