#pragma once

#include "forms/ToolBar.h"

namespace lumarin {

/// Fills the document manager's menu and toolbar. Everything that needs a listing starts disabled.
void BuildDocumentTools(ToolBar& bar);

/// Enables what needs a listing.
void EnableListingTools(ToolBar& bar, bool enabled);

enum class ChosenDocument { None, File, Link };

/// Enables what can be done with the chosen row.
void EnableDocumentTools(ToolBar& bar, ChosenDocument chosen);

}  // namespace lumarin
