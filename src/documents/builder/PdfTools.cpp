#include "documents/builder/PdfTools.h"

#include <string>
#include <utility>
#include <vector>

namespace lumarin {

namespace {

using Tool = ToolBar::Tool;
using Kind = ToolBar::BandKind;

std::vector<Tool> Tools() {
    return {
        {.name = "new",
         .caption = "&New",
         .description = "Throw the pages away and start a new document",
         .icon = "document-new",
         .shortcut = "Ctrl+N"},
        {.name = "save",
         .caption = "&Save As...",
         .description = "Save a copy of the document on this computer",
         .icon = "document-save",
         .shortcut = "Ctrl+S",
         .enabled = false},
        {.name = "preview",
         .caption = "Pre&view",
         .description = "Look at the document as it is now",
         .icon = "document-preview",
         .shortcut = "Ctrl+P",
         .enabled = false},
        {.name = "paste",
         .caption = "&Paste",
         .description = "Add the picture on the clipboard as a page",
         .icon = "edit-paste",
         .shortcut = "Ctrl+V"},
        {.name = "AcquireSingle",
         .caption = "Acquire Single",
         .description = "Scan one page",
         .icon = "scanner",
         .enabled = false},
        {.name = "AcquireMultiple",
         .caption = "Acquire Multiple",
         .description = "Scan several pages",
         .icon = "camera-multiple",
         .enabled = false},
        {.name = "SelectSource",
         .caption = "Select Source...",
         .description = "Choose the scanner or camera",
         .icon = "preferences-system",
         .enabled = false},
        {.name = "help", .caption = "&Help", .description = "Help on making a PDF", .icon = "help-contents"},
        {.name = "mnuDocument", .caption = "&Document", .tools = {"new", "-", "save", "preview"}},
        {.name = "mnuPages",
         .caption = "&Pages",
         .tools = {"paste", "-", "AcquireSingle", "AcquireMultiple", "-", "SelectSource"}},
    };
}

}  // namespace

void BuildPdfTools(ToolBar& bar) {
    for (Tool tool : Tools()) bar.AddTool(std::move(tool));
    bar.AddBand({"mnuMakePdf", Kind::MenuBar, {"mnuDocument", "mnuPages", "help"}});
    bar.AddBand({"Builder",
                 Kind::ToolBar,
                 {"new", "save", "preview", "-", "paste", "AcquireSingle", "AcquireMultiple", "SelectSource",
                  "-", "help"}});
}

}  // namespace lumarin
