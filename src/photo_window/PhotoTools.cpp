#include "photo_window/PhotoTools.h"

#include "base/Text.h"

namespace lumarin {

namespace {
const std::string DescriptionPrefix = "View_";
}

void BuildPhotoTools(ToolBar& menu) {
    using Tool = ToolBar::Tool;
    const auto add = [&](const char* name, const char* caption, const char* description, const char* icon,
                         const char* shortcut, bool enabled) {
        Tool tool;
        tool.name = name;
        tool.caption = caption;
        tool.description = description;
        tool.icon = icon;
        tool.shortcut = shortcut;
        tool.enabled = enabled;
        menu.AddTool(tool);
    };
    const auto addGroup = [&](const char* name, const char* caption, const char* description,
                              const char* icon, std::vector<std::string> tools) {
        Tool group;
        group.name = name;
        group.caption = caption;
        group.description = description;
        group.icon = icon;
        group.tools = std::move(tools);
        menu.AddTool(group);
    };

    add("Open", "&Open", "Opens or finds a file", "document-open", "Ctrl+O", false);
    add("SendPhotos", "Send Photos", "Send photos to server", "document-send", "Ctrl+Return", false);
    add("SmartLoad", "Smart Load", "Get listing from file name", "folder-smart", "Ctrl+L", true);
    // The misspelling in the next two is the system's own.
    add("AcquireSingle", "Acquire Single", "Aquire single image", "scanner", "", false);
    add("AcquireMultiple", "Acquire Multiple", "Aquire multiple images", "camera-multiple", "", false);
    add("SelectSource", "Select Source...", "", "preferences-system", "", true);
    menu.AddTool({.name = "Undo",
                  .caption = "&Undo",
                  .icon = "edit-undo",
                  .shortcut = "Ctrl+Z",
                  .enabled = false,
                  .shortCaption = "Undo"});
    menu.AddTool({.name = "Redo",
                  .caption = "&Redo",
                  .icon = "edit-redo",
                  .shortcut = "Ctrl+Y; Ctrl+Shift+Z",
                  .enabled = false,
                  .shortCaption = "Redo"});
    add("Copy", "C&opy", "Copy current selection to clipboard", "edit-copy", "Ctrl+C", false);
    add("Paste", "&Paste", "Paste clipboard contents", "edit-paste", "Ctrl+V", false);
    add("DeletePhoto", "Delete Photo", "", "edit-delete", "", false);
    add("RemoveEntry", "Remove", "", "list-remove", "", false);
    add("Browse", "Browse...", "", "system-search", "Ctrl+F", true);
    add("VerifyPhotos", "&Verify Photos", "Add or remove unnecessary photos", "view-refresh", "", true);
    add("miHelp", "&Help", "", "help-contents", "F1", true);
    add("Exit", "E&xit", "Close all documents and exit", "application-exit", "Ctrl+Q", true);
    Tool preview;
    preview.name = "FilePreview";
    preview.caption = "File Preview";
    preview.icon = "document-preview";
    preview.checkable = true;
    menu.AddTool(preview);

    addGroup("File", "&File", "", "",
             {"Open", "SmartLoad", "-", "SendPhotos", "-", "VerifyPhotos", "-", "FilePreview", "-", "Exit"});
    addGroup("Edit", "&Edit", "", "",
             {"Undo", "Redo", "-", "Copy", "Paste", "-", "DeletePhoto", "-", "Browse", "RemoveEntry"});
    addGroup("View", "&View", "Photo View", "image-x-generic", {});
    menu.EnableTool("View", false);
    addGroup("Twain", "Twain", "", "", {"AcquireSingle", "AcquireMultiple", "-", "SelectSource"});
    addGroup("PhotoPopup", "", "", "",
             {"View", "-", "Copy", "Paste", "-", "Open", "AcquireSingle", "-", "DeletePhoto"});
    addGroup("ListingPopup", "", "", "",
             {"Open", "SmartLoad", "Browse", "-", "RemoveEntry", "-", "SendPhotos"});

    using Kind = ToolBar::BandKind;
    menu.AddBand({"MainMenu", Kind::MenuBar, {"File", "Edit", "View", "Twain", "miHelp"}});
    menu.AddBand({"Standard",
                  Kind::ToolBar,
                  {"Open", "SmartLoad", "AcquireSingle", "AcquireMultiple", "-", "Copy", "Paste",
                   "DeletePhoto", "-", "Undo", "Redo", "-", "SendPhotos"}});
    menu.AddBand({"Photo", Kind::ToolBar, {"View", "-", "Browse", "RemoveEntry", "VerifyPhotos"}});
    menu.AddBand({"PhotoPopup", Kind::ContextMenu, menu.At("PhotoPopup").tools});
    menu.AddBand({"ListingPopup", Kind::ContextMenu, menu.At("ListingPopup").tools});
}

void BuildDescriptionTools(ToolBar& menu, const DescriptionTable& descriptions) {
    std::vector<std::string> tools;
    for (const PhotoDescription& entry : descriptions.Entries()) {
        ToolBar::Tool tool;
        tool.name = DescriptionPrefix + std::to_string(entry.code);
        tool.caption = text::ReplaceAll(entry.text, "&", "&&");  // is no mark of an access key
        tool.checkable = true;
        if (!menu.Has(tool.name)) menu.AddTool(tool);
        tools.push_back(tool.name);
    }
    menu.SetGroup("View", tools);
}

void CheckDescriptions(ToolBar& menu, const DescriptionTable& descriptions,
                       const std::set<std::string>& codes) {
    for (const PhotoDescription& entry : descriptions.Entries()) {
        const std::string code = std::to_string(entry.code);
        menu.CheckTool(DescriptionPrefix + code, codes.contains(code));
    }
}

std::string DescriptionCodeOfTool(const std::string& tool) {
    return tool.rfind(DescriptionPrefix, 0) == 0 ? tool.substr(DescriptionPrefix.size()) : std::string();
}

}  // namespace lumarin
