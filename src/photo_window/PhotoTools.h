#pragma once

#include <set>
#include <string>

#include "forms/ToolBar.h"
#include "listing/DescriptionTable.h"

namespace lumarin {

/// Fills the photo window's menu bar, toolbars and context menus. Everything that needs a listing starts
/// disabled.
void BuildPhotoTools(ToolBar& menu);

/// Puts one tool for each description of the table under the group "View".
void BuildDescriptionTools(ToolBar& menu, const DescriptionTable& descriptions);

/// Checks the tools of the descriptions with these codes and no others.
void CheckDescriptions(ToolBar& menu, const DescriptionTable& descriptions,
                       const std::set<std::string>& codes);

/// The description code of such a tool; "" for any other tool.
std::string DescriptionCodeOfTool(const std::string& tool);

}  // namespace lumarin
