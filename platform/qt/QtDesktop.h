#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "forms/Desktop.h"
#include "forms/HelpViewer.h"

class QApplication;
class QWidget;

namespace lumarin::qt {

class FormWindow;
struct Owner;

/// Prepares the application: style, a light or dark palette (the desktop's choice, or the environment's
/// LUMARIN_THEME=light or dark), fonts, icons. Call once, before any window.
void SetUpApplication(QApplication& application);

/// What the windows need in an application of somebody else's, whose looks stay its own.
void SetUpWindows();

/// How large a window opens: as designed, but no larger than the screen; or as designed on a screen that
/// nobody looks at.
enum class WindowSizes { WithinScreen, AsDesigned };

/// Adapter: the desktop port on Qt Widgets. A form's window is built from its design, `windows/<form
/// name>.ui`. The native window of a form is its QWidget. A window that is unloaded from within one of its
/// own events is hidden at once and destroyed when no dialog or modal window waits any more.
class QtDesktop final : public Desktop {
public:
    /// What a system does better than the toolkit.
    struct System {
        HelpViewer* help = nullptr;  ///< not owned; without it every help file opens in the browser
        std::function<PicturePtr()> clipboardPicture;  ///< asked for pictures that the toolkit cannot read
    };

    explicit QtDesktop(WindowSizes sizes = WindowSizes::WithinScreen, System system = {nullptr, nullptr});
    ~QtDesktop() override;

    /// For a host that is not of the toolkit: which of its windows owns ours that no other window of ours
    /// owns; 0 is none. It is asked each time, and takes no input while a modal window of ours is shown.
    void UseHostWindow(std::function<std::uintptr_t()> find) { hostWindow_ = std::move(find); }

    /// Throws Error when the form and its design do not fit, with all that is wrong.
    void Load(Form& form) override;
    void Show(Form& form, const OwnerWindow* owner) override;
    void ShowModal(Form& form, const OwnerWindow* owner) override;
    void Hide(Form& form) override;
    void Unload(Form& form) override;
    void DestroyLater(std::unique_ptr<Form> form) override;

    Answer ShowMessage(const Message& message, const Form* owner) override;
    std::vector<std::string> ChooseFiles(const FileDialog& dialog, const Form* owner) override;
    std::string ChooseFileToSave(const SaveDialog& dialog, const Form* owner) override;
    void OpenInBrowser(const std::string& address) override;
    void OpenDocument(const std::string& path) override;
    void PopupMenu(ToolBar& toolBar, const std::string& band) override;

    void SetPointer(Pointer pointer) override;
    Size ScreenSize() const override;
    double PixelScale(const Form& form) const override;
    void ProcessPendingEvents() override;

    bool ClipboardHasPicture() const override;
    PicturePtr ClipboardPicture() const override;
    std::vector<std::string> ClipboardFiles() const override;
    void SetClipboardText(const std::string& text) override;
    void SetClipboardPicture(const Picture& picture) override;
    void ClearClipboard() override;

    void OpenHelp(const std::string& helpFile, int context) override;

private:
    class Nested;

    FormWindow& WindowOf(const Form& form) const;
    /// The window of the owner, if it is seen, or the host's.
    Owner OwnerOf(const OwnerWindow* owner) const;
    Owner HostOwner() const;
    void DestroyRetired();

    const WindowSizes sizes_;
    std::function<std::uintptr_t()> hostWindow_;
    const System system_;
    std::map<const Form*, std::unique_ptr<FormWindow>> windows_;
    std::vector<std::unique_ptr<FormWindow>> retiredWindows_;
    std::vector<std::unique_ptr<Form>> retiredForms_;
    QTimer destroy_;
    QPointer<QWindow> unseen_;  ///< shown last, and not known to be on the screen yet
    int nesting_ = 0;           ///< event loops of ours that run inside each other
    bool busyPointer_ = false;
};

}  // namespace lumarin::qt
