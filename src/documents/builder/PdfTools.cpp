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
        {.name = "FrontsThenBacks",
         .caption = "Acquire &Fronts, Then Backs...",
         .description = "Scan sheets printed on both sides with a feeder that sees one side",
         .icon = "camera-multiple",
         .enabled = false},
        {.name = "StraightenScans",
         .caption = "S&traighten Scanned Pages",
         .description = "Turn pages that went in askew, where their lines are clear",
         .checkable = true},
        {.name = "LeaveOutBlank",
         .caption = "Leave Out &Blank Pages",
         .description = "Leave out blank pages when several are scanned; they can be brought back",
         .checkable = true},
        {.name = "BringBack",
         .caption = "Bring Bac&k Blank Pages",
         .description = "Put the blank pages that were left out back in their places",
         .enabled = false},
        {.name = "SelectSource",
         .caption = "Select Source...",
         .description = "Choose the scanner or camera",
         .icon = "preferences-system",
         .enabled = false},
        {.name = "undo",
         .caption = "&Undo",
         .description = "Take back what was done to the pages",
         .icon = "edit-undo",
         .shortcut = "Ctrl+Z",
         .enabled = false},
        {.name = "redo",
         .caption = "&Redo",
         .description = "Do again what was taken back",
         .icon = "edit-redo",
         .shortcut = "Ctrl+Y",
         .enabled = false},
        {.name = "ViewPage",
         .caption = "&View Page",
         .description = "See the page large",
         .icon = "system-search",
         .enabled = false},
        {.name = "RotateLeft",
         .caption = "Turn &Left",
         .description = "Turn the selected pages to the left",
         .icon = "object-rotate-left",
         .shortcut = "Ctrl+L",
         .enabled = false},
        {.name = "RotateRight",
         .caption = "&Turn Right",
         .description = "Turn the selected pages to the right",
         .icon = "object-rotate-right",
         .shortcut = "Ctrl+R",
         .enabled = false},
        {.name = "MoveUp",
         .caption = "Move U&p",
         .description = "Move the selected pages up (Alt+Up)",
         .icon = "go-up",
         .enabled = false},
        {.name = "MoveDown",
         .caption = "Move Do&wn",
         .description = "Move the selected pages down (Alt+Down)",
         .icon = "go-down",
         .enabled = false},
        {.name = "DeletePages",
         .caption = "&Delete",
         .description = "Delete the selected pages",
         .icon = "edit-delete",
         .enabled = false},
        // In no band: the key alone.
        {.name = "cancel", .caption = "Cancel", .shortcut = "Esc"},
        {.name = "help", .caption = "&Help", .description = "Help on making a PDF", .icon = "help-contents"},
        {.name = "mnuDocument", .caption = "&Document", .tools = {"new", "-", "save", "preview"}},
        {.name = "mnuEdit",
         .caption = "Edi&t",
         .tools = {"undo", "redo", "-", "RotateLeft", "RotateRight", "MoveUp", "MoveDown", "-", "ViewPage",
                   "DeletePages"}},
        {.name = "mnuPages",
         .caption = "&Pages",
         .tools = {"paste", "-", "AcquireSingle", "AcquireMultiple", "FrontsThenBacks", "-",
                   "StraightenScans", "LeaveOutBlank", "BringBack", "-", "SelectSource"}},
    };
}

}  // namespace

void BuildPdfTools(ToolBar& bar) {
    for (Tool tool : Tools()) bar.AddTool(std::move(tool));
    bar.AddBand({"mnuMakePdf", Kind::MenuBar, {"mnuDocument", "mnuEdit", "mnuPages", "help"}});
    bar.AddBand({PageMenu,
                 Kind::ContextMenu,
                 {"ViewPage", "-", "RotateLeft", "RotateRight", "MoveUp", "MoveDown", "-", "DeletePages", "-",
                  "undo", "redo"}});
    bar.AddBand({"Builder",
                 Kind::ToolBar,
                 {"new", "save", "preview", "-", "paste", "AcquireSingle", "AcquireMultiple", "SelectSource",
                  "-", "help"}});
}

}  // namespace lumarin
