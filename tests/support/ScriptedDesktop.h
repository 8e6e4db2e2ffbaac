#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "forms/Desktop.h"

namespace lumarin::testing {

/// Plays the person at the screen. What the component asks is answered from a script; a message, dialog
/// or modal window that the script does not expect fails the test.
class ScriptedDesktop final : public Desktop {
public:
    /// Expects a message with exactly this text next, and with this title if one is given, and answers it.
    void Expect(const std::string& text, Answer answer = Answer::Ok, const std::string& title = {}) {
        expected_.push_back({text, answer, title});
    }
    void Expect(const std::string& text, const std::string& title) { Expect(text, Answer::Ok, title); }
    /// The user chooses these files, or this one, in the next file dialog; none or "" is cancel.
    void Choose(std::vector<std::string> paths) { choices_.push_back(std::move(paths)); }
    void Choose(const std::string& path) {
        Choose(path.empty() ? std::vector<std::string>{} : std::vector{path});
    }
    /// When this window is next shown modal, `play` acts in it; it must leave it hidden. `play` takes a Form
    /// or the window's own class.
    template <class Act>
    void Play(const std::string& window, Act play) {
        Script(window, std::function{std::move(play)});
    }
    /// From now on nothing is unexpected: messages are only recorded and answered by `answer`, or with Yes
    /// where there is one and Cancel elsewhere; dialogs are cancelled, and `play` acts in every modal window
    /// that no script awaits.
    void BeLenient(std::function<void(Form&)> play, std::function<Answer(const Message&)> answer = nullptr) {
        playOthers_ = std::move(play);
        answerOthers_ = std::move(answer);
    }
    /// Runs at the n-th (from 1) call of ProcessPendingEvents from now.
    void AtPendingEvents(int n, std::function<void()> action) {
        pending_[pendingCalls_ + n] = std::move(action);
    }
    /// Fails the test when something in the script was not asked for.
    void VerifyAllUsed() const;

    std::vector<Message> messages;
    std::vector<FileDialog> dialogs;
    std::vector<SaveDialog> saveDialogs;
    std::vector<std::string> opened;    ///< addresses and document files
    std::vector<std::string> poppedUp;  ///< names of the context menus that were opened
    std::vector<std::pair<std::string, int>> helpPages;
    std::map<std::string, const OwnerWindow*> shownWith;  ///< modeless windows by name, with their owner
    std::map<std::string, Form*> shown;                   ///< modeless windows by name
    Pointer pointer = Pointer::Default;
    Size screen{1280 * TwipsPerPixel, 1024 * TwipsPerPixel};
    PicturePtr clipboard;
    std::vector<std::string> clipboardFiles;
    std::string clipboardText;

    void Load(Form&) override {}
    void Show(Form& form, const OwnerWindow* owner) override;
    void ShowModal(Form& form, const OwnerWindow* owner) override;
    void Hide(Form&) override {}
    void Unload(Form& form) override {
        shownWith.erase(form.Name());
        shown.erase(form.Name());
    }
    void DestroyLater(std::unique_ptr<Form> form) override { givenUp_.push_back(std::move(form)); }
    Answer ShowMessage(const Message& message, const Form* owner) override;
    std::vector<std::string> ChooseFiles(const FileDialog& dialog, const Form* owner) override;
    std::string ChooseFileToSave(const SaveDialog& dialog, const Form* owner) override;
    void OpenInBrowser(const std::string& address) override { opened.push_back(address); }
    void OpenDocument(const std::string& path) override { opened.push_back(path); }
    void PopupMenu(ToolBar& toolBar, const std::string& band) override;
    void SetPointer(Pointer shape) override { pointer = shape; }
    Size ScreenSize() const override { return screen; }
    void ProcessPendingEvents() override;
    bool ClipboardHasPicture() const override { return clipboard != nullptr; }
    PicturePtr ClipboardPicture() const override { return clipboard; }
    std::vector<std::string> ClipboardFiles() const override { return clipboardFiles; }
    void SetClipboardText(const std::string& text) override { clipboardText = text; }
    void SetClipboardPicture(const Picture& picture) override {
        clipboard = std::make_shared<Picture>(picture);
    }
    void ClearClipboard() override { clipboard.reset(); }
    void OpenHelp(const std::string& helpFile, int context) override {
        helpPages.emplace_back(helpFile, context);
    }

private:
    template <class Window>
    void Script(const std::string& window, std::function<void(Window&)> play) {
        plays_[window].push_back([play](Form& form) { play(static_cast<Window&>(form)); });
    }
    std::vector<std::string> NextChoice(const std::string& title);

    struct Expectation {
        std::string text;
        Answer answer = Answer::Ok;
        std::string title;
    };
    std::deque<Expectation> expected_;
    std::deque<std::vector<std::string>> choices_;
    std::map<std::string, std::deque<std::function<void(Form&)>>> plays_;
    std::function<void(Form&)> playOthers_;
    std::function<Answer(const Message&)> answerOthers_;
    std::map<int, std::function<void()>> pending_;
    int pendingCalls_ = 0;
    std::vector<std::unique_ptr<Form>> givenUp_;
};

}  // namespace lumarin::testing
