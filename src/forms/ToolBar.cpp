#include "forms/ToolBar.h"

#include <algorithm>

#include "base/Error.h"

namespace lumarin {

void ToolBar::AddTool(Tool tool) {
    if (Has(tool.name)) throw Error(457, Name(), "The tool \"" + tool.name + "\" is already there");
    tools_.push_back(std::move(tool));
    Changed();
}

void ToolBar::AddBand(Band band) {
    bands_.push_back(std::move(band));
    Changed();
}

void ToolBar::SetGroup(const std::string& group, std::vector<std::string> tools) {
    Find(group).tools = std::move(tools);
    Changed();
}

bool ToolBar::Has(const std::string& name) const {
    return std::any_of(tools_.begin(), tools_.end(), [&](const Tool& tool) { return tool.name == name; });
}

const ToolBar::Tool& ToolBar::At(const std::string& name) const {
    return const_cast<ToolBar*>(this)->Find(name);
}

ToolBar::Tool& ToolBar::Find(const std::string& name) {
    const auto found =
        std::find_if(tools_.begin(), tools_.end(), [&](const Tool& tool) { return tool.name == name; });
    if (found == tools_.end()) throw Error(5, Name(), "There is no tool \"" + name + "\"");
    return *found;
}

void ToolBar::SetTexts(const std::string& name, const std::string& caption, const std::string& description) {
    Tool& tool = Find(name);
    if (tool.caption == caption && tool.description == description) return;
    tool.caption = caption;
    tool.description = description;
    Changed();
}

void ToolBar::EnableTool(const std::string& name, bool enabled) { Set(Find(name).enabled, enabled); }

void ToolBar::CheckTool(const std::string& name, bool checked) { Set(Find(name).checked, checked); }

void ToolBar::ClickTool(const std::string& name) {
    const Tool& tool = At(name);
    if (Enabled() && tool.enabled && tool.tools.empty()) {
        const std::string clicked = tool.name;  // a handler may add tools and move this one
        Raise<const std::string&>("ToolClick", ToolClick, clicked);
    }
}

}  // namespace lumarin
