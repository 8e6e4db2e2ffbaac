#pragma once

#include <string>
#include <vector>

#include "forms/Control.h"

namespace lumarin {

/// The menus, toolbars and context menus of one window. Tools are addressed by name; a tool may stand in
/// several bands and has one state in all of them. A tool with tools under it is a group: it opens a
/// sub-menu and has no click of its own.
class ToolBar : public ControlOf<ControlKind::ToolBar> {
public:
    struct Tool {
        std::string name;
        std::string caption{};      ///< "&" marks the access key
        std::string description{};  ///< tooltip and status text
        std::string icon{};         ///< standard name of the desktop's icon naming; "" for none
        std::string shortcut{};     ///< "Ctrl+O", several separated by "; "; "" for none
        bool checkable = false;
        bool enabled = true;
        bool checked = false;
        std::vector<std::string> tools{};  ///< what a group holds, in order; "-" is a separator
        std::string shortCaption{};        ///< on a toolbar's button; "" for the caption
    };

    enum class BandKind { MenuBar, ToolBar, ContextMenu };

    struct Band {
        std::string name;
        BandKind kind = BandKind::ToolBar;
        std::vector<std::string> tools;  ///< in order; "-" is a separator
    };

    using ControlOf::ControlOf;

    void AddTool(Tool tool);
    void AddBand(Band band);
    /// Replaces what a group holds; tools that are new must have been added before.
    void SetGroup(const std::string& group, std::vector<std::string> tools);

    const std::vector<Tool>& Tools() const { return tools_; }
    const std::vector<Band>& Bands() const { return bands_; }
    /// Throws Error for a name that is not there.
    const Tool& At(const std::string& name) const;
    bool Has(const std::string& name) const;

    void SetTexts(const std::string& name, const std::string& caption, const std::string& description);

    bool IsEnabled(const std::string& name) const { return At(name).enabled; }
    void EnableTool(const std::string& name, bool enabled);
    bool IsChecked(const std::string& name) const { return At(name).checked; }
    void CheckTool(const std::string& name, bool checked);

    /// By the user or the code; nothing while the tool or the bar is disabled.
    void ClickTool(const std::string& name);

    /// For the front end: the menu of a group is about to be seen.
    void OpenGroup(const std::string& name) { Raise<const std::string&>("GroupOpens", GroupOpens, name); }

    Event<const std::string&> ToolClick;
    Event<const std::string&> GroupOpens;  ///< its tools can still be checked and enabled

private:
    Tool& Find(const std::string& name);

    std::vector<Tool> tools_;
    std::vector<Band> bands_;
};

}  // namespace lumarin
