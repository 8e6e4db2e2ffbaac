#pragma once

#include "forms/ToolBar.h"

namespace lumarin {

/// Fills the document manager's menu and toolbar. Everything that needs a listing starts disabled.
void BuildDocumentTools(ToolBar& bar);

/// Enables what needs a listing.
void EnableListingTools(ToolBar& bar, bool enabled);

/// Fills the PDF builder's toolbar. What needs pages, and what needs a scanner, starts disabled.
void BuildPdfTools(ToolBar& bar);

}  // namespace lumarin
