#include "documents/DocumentTools.h"

namespace lumarin {

namespace {

using Tool = ToolBar::Tool;
using Kind = ToolBar::BandKind;

void AddTool(ToolBar& bar, const char* name, const char* caption, const char* description, const char* icon,
             const char* shortcut, bool enabled = true) {
    Tool tool;
    tool.name = name;
    tool.caption = caption;
    tool.description = description;
    tool.icon = icon;
    tool.shortcut = shortcut;
    tool.enabled = enabled;
    bar.AddTool(tool);
}

void AddGroup(ToolBar& bar, const char* name, const char* caption, std::vector<std::string> tools) {
    Tool group;
    group.name = name;
    group.caption = caption;
    group.tools = std::move(tools);
    bar.AddTool(group);
}

}  // namespace

void BuildDocumentTools(ToolBar& bar) {
    AddTool(bar, "miSelectListing", "&Select Listing...", "Choose the listing whose documents are shown",
            "system-search", "Ctrl+L");
    AddTool(bar, "miAddExistingFile", "Add &PDF File...", "Send a PDF file to the listing", "document-send",
            "Ctrl+O", false);
    AddTool(bar, "miMakePdf", "&Create PDF...",
            "Make a PDF from pictures or scans and send it to the listing", "document-new", "Ctrl+N", false);
    AddTool(bar, "miAddUrl", "Add &Link...", "Add the address of a document on the internet", "insert-link",
            "Ctrl+K", false);
    AddTool(bar, "miPreview", "&Preview", "Open the selected document in the browser", "document-preview", "",
            false);
    AddTool(bar, "miCopyLink", "&Copy Link", "Copy the address of the selected link", "edit-copy", "Ctrl+C",
            false);
    AddTool(bar, "miDelete", "De&lete...", "Delete the selected document from the server", "edit-delete", "",
            false);
    AddTool(bar, "miExit", "E&xit", "Close the document manager", "application-exit", "Ctrl+Q");
    AddTool(bar, "miHelp", "&Help", "Help on documents", "help-contents", "");
    AddGroup(bar, "mnuFile", "&File",
             {"miSelectListing", "-", "miAddExistingFile", "miMakePdf", "miAddUrl", "-", "miExit"});
    AddGroup(bar, "mnuEdit", "&Edit", {"miPreview", "miCopyLink", "-", "miDelete"});
    bar.AddBand({"mnuAddDocument", Kind::MenuBar, {"mnuFile", "mnuEdit", "miHelp"}});
    bar.AddBand({"DocumentPopup", Kind::ContextMenu, bar.At("mnuEdit").tools});
    bar.AddBand({"Documents",
                 Kind::ToolBar,
                 {"miSelectListing", "-", "miAddExistingFile", "miMakePdf", "miAddUrl", "-", "miHelp"}});
}

void EnableListingTools(ToolBar& bar, bool enabled) {
    for (const char* tool : {"miAddExistingFile", "miMakePdf", "miAddUrl"}) bar.EnableTool(tool, enabled);
}

void EnableDocumentTools(ToolBar& bar, ChosenDocument chosen) {
    for (const char* tool : {"miPreview", "miDelete"}) bar.EnableTool(tool, chosen != ChosenDocument::None);
    bar.EnableTool("miCopyLink", chosen == ChosenDocument::Link);
}

}  // namespace lumarin
