#pragma once

#include "forms/ToolBar.h"

namespace lumarin {

/// Name of the page list's context menu.
inline constexpr const char* PageMenu = "mnuPage";

/// Fills the PDF builder's toolbar. What needs pages, and what needs a scanner, starts disabled.
void BuildPdfTools(ToolBar& bar);

}  // namespace lumarin
