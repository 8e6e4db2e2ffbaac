#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "forms/ToolBar.h"

namespace lumarin::testing {

void ScriptedDesktop::VerifyAllUsed() const {
    for (const Expectation& expected : expected_) ADD_FAILURE() << "message not shown: " << expected.text;
    EXPECT_TRUE(choices_.empty()) << "file dialog not opened";
    for (const auto& [window, plays] : plays_) EXPECT_TRUE(plays.empty()) << window << " was not shown";
}

void ScriptedDesktop::Show(Form& form, const OwnerWindow* owner) {
    shownWith[form.Name()] = owner;
    shown[form.Name()] = &form;
    form.Activated();
}

void ScriptedDesktop::ShowModal(Form& form, const OwnerWindow*) {
    form.Activated();
    auto& plays = plays_[form.Name()];
    if (plays.empty() && playOthers_) return playOthers_(form), form.Hide();
    if (plays.empty()) {
        ADD_FAILURE() << "unexpected modal window " << form.Name();
        form.Hide();
        return;
    }
    const auto play = std::move(plays.front());
    plays.pop_front();
    play(form);
    EXPECT_FALSE(form.IsShown()) << form.Name() << " was left open";
    form.Hide();
}

namespace {

/// A person who presses Enter without reading loses nothing: every question says what Enter answers, and one
/// that speaks of losing something answers No.
void ExpectHarmlessEnter(const Message& message) {
    if (message.buttons != Buttons::YesNo && message.buttons != Buttons::YesNoCancel) return;
    EXPECT_TRUE(message.enter) << "nothing says what Enter answers: " << message.text;
    if (message.buttons == Buttons::YesNoCancel) return;
    for (const char* word : {"remove", "delete", "throw", "lose"})
        if (text::ContainsIgnoringCase(message.text, word)) {
            EXPECT_EQ(message.enter, Answer::No) << message.text;
        }
}

}  // namespace

Answer ScriptedDesktop::ShowMessage(const Message& message, const Form*) {
    messages.push_back(message);
    ExpectHarmlessEnter(message);
    if (expected_.empty() || expected_.front().text != message.text) {
        if (answerOthers_) return answerOthers_(message);
        if (playOthers_) return message.buttons == Buttons::YesNo ? Answer::Yes : Answer::Cancel;
        ADD_FAILURE() << "unexpected message: " << message.text << " [" << message.title << "]";
        return Answer::Cancel;
    }
    const Expectation expected = expected_.front();
    expected_.pop_front();
    if (!expected.title.empty()) {
        EXPECT_EQ(message.title, expected.title) << message.text;
    }
    return expected.answer;
}

std::vector<std::string> ScriptedDesktop::ChooseFiles(const FileDialog& dialog, const Form*) {
    dialogs.push_back(dialog);
    return NextChoice(dialog.title);
}

std::string ScriptedDesktop::ChooseFileToSave(const SaveDialog& dialog, const Form*) {
    saveDialogs.push_back(dialog);
    const std::vector<std::string> choice = NextChoice(dialog.title);
    return choice.empty() ? std::string() : choice.front();
}

std::vector<std::string> ScriptedDesktop::NextChoice(const std::string& title) {
    if (choices_.empty()) {
        if (!playOthers_) ADD_FAILURE() << "unexpected file dialog: " << title;
        return {};
    }
    std::vector<std::string> choice = choices_.front();
    choices_.pop_front();
    return choice;
}

void ScriptedDesktop::PopupMenu(ToolBar&, const std::string& band) { poppedUp.push_back(band); }

void ScriptedDesktop::ProcessPendingEvents() {
    const auto due = pending_.find(++pendingCalls_);
    if (due == pending_.end()) return;
    const auto action = std::move(due->second);
    pending_.erase(due);
    action();
}

}  // namespace lumarin::testing
