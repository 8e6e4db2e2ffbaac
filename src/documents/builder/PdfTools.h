#pragma once

#include "forms/ToolBar.h"

namespace lumarin {

/// Fills the PDF builder's toolbar. What needs pages, and what needs a scanner, starts disabled.
void BuildPdfTools(ToolBar& bar);

}  // namespace lumarin
