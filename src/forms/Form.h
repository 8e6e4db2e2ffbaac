#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Geometry.h"
#include "forms/Input.h"

namespace lumarin {

class Control;
class Desktop;

/// A window of the toolkit that can own others: a form, or the host's main window.
class OwnerWindow {
public:
    virtual ~OwnerWindow() = default;
    /// The toolkit's own window (a widget pointer, a window handle); null when it has none.
    virtual void* NativeWindow() const = 0;
};

/// Who closes a window: the frame's close command (the user), the program, or the host.
enum class CloseReason { Frame, Code, Host };

/// The front end's side of one window.
class FormView {
public:
    virtual ~FormView() = default;
    /// Caption or enabled state changed.
    virtual void StateChanged() = 0;
    /// The code has put the window elsewhere.
    virtual void PlaceChanged() = 0;
    /// The code has given the window another inner size.
    virtual void InnerSizeChanged() = 0;
    /// Whether the user has given the window a size, now or in an earlier run.
    virtual bool HasUsersSize() const = 0;
    /// The size that the code has given the window last is one that its user may change for good.
    virtual void SizeIsUsual() = 0;
    /// The form is about to look at its place: it is to be told (`Placed`). A frame may come, and push the
    /// window on, without any notice of it.
    virtual void TellPlace() = 0;
    virtual void* NativeWindow() const = 0;
};

/// A window: a controller whose public members are its controls. It knows no toolkit; the desktop port
/// makes it visible. Life: constructed, loaded (the front end exists), shown, hidden, unloaded. It may
/// be loaded again after it was unloaded. All calls on the user-interface thread.
class Form : public OwnerWindow {
public:
    Form(Desktop& desktop, std::string name);
    /// Takes the front end down if it is still there, without asking or telling anybody.
    ~Form() override;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Name() const { return name_; }
    const std::vector<Control*>& Controls() const { return controls_; }
    /// The control with this object name ("txtID", "cmdMove_0"); null when there is none.
    Control* Find(std::string_view objectName) const;

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    /// Number of this window's page in the host's help file.
    int HelpContext() const { return helpContext_; }
    /// Opens this window's page. Throws Error when it cannot be shown.
    void OpenHelp() const;
    /// For the front end: the help key was pressed.
    void HelpPressed();
    /// Whether the window stays above the others of the program.
    bool Topmost() const { return topmost_; }

    /// Outer place on the screen, in twips.
    const Rect& Bounds() const { return bounds_; }
    void MoveTo(double left, double top);
    /// For the front end: the window stands here now.
    void Placed(const Rect& bounds) { bounds_ = bounds; }

    /// Size of the area inside the frame, in twips; nothing (0 x 0) before a front end or the code has
    /// said one.
    const Size& InnerSize() const { return innerSize_; }
    /// Gives the window this inner size; the frame comes on top of it and the place stays.
    void SetInnerSize(const Size& size);
    /// The same for a window whose user has not given it another size: that one stays.
    void SetUsualSize(const Size& size);
    /// For the front end: the area inside the frame has this size now.
    void InnerPlaced(const Size& size);

    bool IsLoaded() const { return loaded_; }
    bool IsShown() const { return shown_; }
    /// Builds the front end, hidden, and runs `OnLoad`. Nothing when it is loaded.
    void Load();
    /// Shows modeless above `owner` (which may be null); loads first when needed.
    void Show(const OwnerWindow* owner);
    /// Shows modal and returns when the window was hidden or unloaded.
    void ShowModal(const OwnerWindow* owner);
    void Hide();
    /// Asks (`OnQueryClose`), then runs `OnUnload` and takes the front end down. True when it is gone.
    /// While a command runs, the frame's close command is refused; any other unload asks the command to
    /// stop (`OnStopRequested`), answers false, and takes place when the command has ended.
    bool Unload(CloseReason reason = CloseReason::Code);

    void* NativeWindow() const override { return view_ != nullptr ? view_->NativeWindow() : nullptr; }

    /// The one guard: runs `work`; an exception becomes this window's error report with the source
    /// "window-command". Never throws. False when the work failed.
    bool Guarded(std::string_view command, const std::function<void()>& work) noexcept;

    /// Runs a command inside the guard. While it runs, any further command of this window is refused
    /// silently: a user who presses twice while the first press still works means one press.
    void RunCommand(std::string_view command, const std::function<void()>& work);
    bool IsRunningCommand() const { return runningCommand_; }

    // For the front end.
    void Attach(FormView* view) { view_ = view; }
    void Activated();
    /// For controls: they enter themselves here when they are constructed.
    void Enter(Control& control) { controls_.push_back(&control); }

protected:
    Desktop& desktop() const { return desktop_; }
    void SetHelpContext(int context) { helpContext_ = context; }
    void SetTopmost(bool topmost) { topmost_ = topmost; }
    /// The size to assume before a front end has said another, in twips.
    void SetInitialSize(double width, double height);

    virtual void OnLoad() {}
    /// The window is about to be seen, for the first time or again: here it says where the focus goes.
    /// Nothing promises that a window that is shown again is also activated again.
    virtual void OnShow() {}
    virtual void OnActivate() {}
    /// The inner size has changed, by the code or by the user.
    virtual void OnResize() {}
    /// False refuses the close.
    virtual bool OnQueryClose(CloseReason) { return true; }
    virtual void OnUnload() {}
    /// The window is to go while one of its commands runs: the command should end soon.
    virtual void OnStopRequested() {}
    /// The frame's close command, or Escape in a dialog, came while a command runs, and was refused. A
    /// command that can be cancelled may take it for that.
    virtual void OnCloseRefused() {}
    /// Shows what went wrong; a window may word some errors its own way. `source` is "window-command".
    virtual void ReportError(const std::string& source, const std::exception& error);

private:
    void AboutToBeSeen();

    Desktop& desktop_;
    std::string name_;
    std::vector<Control*> controls_;
    std::string caption_;
    bool enabled_ = true;
    bool loaded_ = false;
    bool shown_ = false;
    bool runningCommand_ = false;
    bool unloadWhenDone_ = false;
    bool topmost_ = false;
    int helpContext_ = 0;
    Rect bounds_;
    Size innerSize_;
    FormView* view_ = nullptr;
};

}  // namespace lumarin
