#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "forms/Form.h"
#include "forms/Geometry.h"
#include "forms/Input.h"
#include "forms/Picture.h"

namespace lumarin {

class ToolBar;
class WindowMemory;

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel };
enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Modality { Application, System };

/// The button that was pressed, with the platform's numbers. Closing a question, by Escape or by its frame,
/// answers Cancel, even where it has no such button: a caller destroys nothing on Cancel.
enum class Answer { Ok = 1, Cancel = 2, Retry = 4, Yes = 6, No = 7 };

/// A message box. A system-modal one stays above every window of the screen.
struct Message {
    std::string text;
    std::string title;
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
    Modality modality = Modality::Application;
    /// What the Enter key answers. A question with Yes and No says it: No where Yes destroys something.
    /// Otherwise nothing stands for Retry where there is that button, else for OK.
    std::optional<Answer> enter = std::nullopt;
};

/// A dialog that chooses existing files.
struct FileDialog {
    std::string title;
    /// Pairs of a caption and patterns: "Text (*.txt)|*.txt|All (*.*)|*.*".
    std::string filter;
    std::string folder;  ///< where it starts; "" is the toolkit's choice
    bool several = false;
    bool preview = false;  ///< show a preview of the picture under the cursor
};

/// A dialog that chooses the name of a file to write; it asks before it lets an existing one be replaced.
struct SaveDialog {
    std::string title;
    std::string filter;  ///< as in FileDialog
    std::string folder;  ///< where it starts; "" is the toolkit's choice
    std::string name;    ///< the name that is offered
};

/// Port: the only way to a person. Owns the front end of every loaded form, which it builds in `Load`
/// and takes down in `Unload`; the forms belong to the caller. All calls on the user-interface thread.
class Desktop {
public:
    virtual ~Desktop() = default;

    virtual void Load(Form& form) = 0;
    virtual void Show(Form& form, const OwnerWindow* owner) = 0;
    /// Returns when the form has been hidden or unloaded; other windows of the program take no input
    /// until then, but paint.
    virtual void ShowModal(Form& form, const OwnerWindow* owner) = 0;
    virtual void Hide(Form& form) = 0;
    virtual void Unload(Form& form) = 0;
    /// Destroys a form when the events that run now have ended: a window may be given up from within one
    /// of its own events, and even while one of its commands runs: it is then destroyed when that has ended.
    virtual void DestroyLater(std::unique_ptr<Form> form) = 0;

    virtual Answer ShowMessage(const Message& message, const Form* owner) = 0;

    /// The full paths of the chosen files; none when the user cancelled.
    virtual std::vector<std::string> ChooseFiles(const FileDialog& dialog, const Form* owner) = 0;

    /// The chosen file's full path; "" when the user cancelled.
    virtual std::string ChooseFileToSave(const SaveDialog& dialog, const Form* owner) = 0;

    /// Opens the context menu of this name at the pointer and returns when it is closed.
    virtual void PopupMenu(ToolBar& toolBar, const std::string& band) = 0;

    virtual void SetPointer(Pointer pointer) = 0;
    /// The work area of the screen, in twips.
    virtual Size ScreenSize() const = 0;
    /// Pixels of the screen for one of `TwipsPerPixel` twips, where this form is shown: 2 at 200 percent.
    virtual double PixelScale(const Form&) const { return 1; }
    /// Lets timers, painting and input that wait take their turn; returns at once when nothing waits.
    virtual void ProcessPendingEvents() = 0;

    virtual bool ClipboardHasPicture() const = 0;
    /// Null when the clipboard holds no picture.
    virtual PicturePtr ClipboardPicture() const = 0;
    /// Full paths of the files that a file manager copied; none when the clipboard holds no files.
    virtual std::vector<std::string> ClipboardFiles() const = 0;
    virtual void SetClipboardText(const std::string& text) = 0;
    virtual void SetClipboardPicture(const Picture& picture) = 0;
    virtual void ClearClipboard() = 0;

    /// Opens a page of a help file by its context number. Throws Error when it cannot be shown.
    virtual void OpenHelp(const std::string& helpFile, int context) = 0;

    /// Opens an address in a new window of the user's browser. An address without a scheme is taken as a
    /// browser's address line takes it: http, with "\" as "/". Throws Error, and opens nothing, for any
    /// scheme but http and https, and when there is no browser.
    virtual void OpenInBrowser(const std::string& address) = 0;
    /// Opens a document file of this machine where the user looks at such documents. Throws Error when it is
    /// not there or nothing shows it.
    virtual void OpenDocument(const std::string& path) = 0;

    /// The help file that the help key opens in every window. Set by every start of a job; the last one
    /// counts.
    void SetHelpFile(std::string path) { helpFile_ = std::move(path); }
    const std::string& HelpFile() const { return helpFile_; }

    /// Where windows are kept that are loaded from now on; not owned. At first they are not kept.
    void SetWindowMemory(const WindowMemory* memory) { memory_ = memory; }

protected:
    const WindowMemory* Memory() const { return memory_; }

private:
    std::string helpFile_;
    const WindowMemory* memory_ = nullptr;
};

/// Shows the hourglass and restores the default pointer at the end, also on failure.
class HourglassPointer {
public:
    explicit HourglassPointer(Desktop& desktop) : desktop_(desktop) {
        desktop_.SetPointer(Pointer::Hourglass);
    }
    ~HourglassPointer() { desktop_.SetPointer(Pointer::Default); }
    HourglassPointer(const HourglassPointer&) = delete;
    HourglassPointer& operator=(const HourglassPointer&) = delete;

private:
    Desktop& desktop_;
};

}  // namespace lumarin
