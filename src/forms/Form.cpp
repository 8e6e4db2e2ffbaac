#include "forms/Form.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "base/Error.h"
#include "forms/Control.h"
#include "forms/Desktop.h"

namespace lumarin {

Form::Form(Desktop& desktop, std::string name) : desktop_(desktop), name_(std::move(name)) {}

Form::~Form() {
    if (loaded_) desktop_.Unload(*this);
}

Control* Form::Find(std::string_view objectName) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) {
        return control->ObjectName() == objectName;
    });
    return found == controls_.end() ? nullptr : *found;
}

void Form::SetCaption(std::string caption) {
    caption_ = std::move(caption);
    if (view_ != nullptr) view_->StateChanged();
}

void Form::SetEnabled(bool enabled) {
    enabled_ = enabled;
    if (view_ != nullptr) view_->StateChanged();
}

void Form::SetInitialSize(double width, double height) {
    bounds_.width = width;
    bounds_.height = height;
}

void Form::MoveTo(double left, double top) {
    bounds_.left = left;
    bounds_.top = top;
    if (view_ != nullptr) view_->PlaceChanged();
}

void Form::SetInnerSize(const Size& size) {
    const bool frameKnown = innerSize_.width > 0;
    bounds_.width = size.width + (frameKnown ? bounds_.width - innerSize_.width : 0);
    bounds_.height = size.height + (frameKnown ? bounds_.height - innerSize_.height : 0);
    InnerPlaced(size);
    if (view_ != nullptr) view_->InnerSizeChanged();
}

void Form::SetUsualSize(const Size& size) {
    if (view_ != nullptr && view_->HasUsersSize()) return;
    SetInnerSize(size);
    if (view_ != nullptr) view_->SizeIsUsual();
}

void Form::InnerPlaced(const Size& size) {
    if (size == innerSize_) return;
    innerSize_ = size;
    Guarded("Resize", [this] { OnResize(); });
}

void Form::Load() {
    if (loaded_) return;
    desktop_.Load(*this);  // throws when the front end does not fit: the form is not loaded then
    loaded_ = true;
    Guarded("Load", [this] { OnLoad(); });
}

void Form::Show(const OwnerWindow* owner) {
    Load();
    AboutToBeSeen();
    desktop_.Show(*this, owner);
}

void Form::AboutToBeSeen() {
    if (std::exchange(shown_, true)) return;
    Guarded("Show", [this] { OnShow(); });
}

void Form::ShowModal(const OwnerWindow* owner) {
    Load();
    AboutToBeSeen();
    desktop_.ShowModal(*this, owner);
}

void Form::Hide() {
    if (!shown_) return;
    shown_ = false;
    desktop_.Hide(*this);
}

bool Form::Unload(CloseReason reason) {
    if (!loaded_) return true;
    if (runningCommand_) {
        unloadWhenDone_ = unloadWhenDone_ || reason != CloseReason::Frame;
        Guarded("QueryUnload", [&] {
            if (reason == CloseReason::Frame) OnCloseRefused();
            if (unloadWhenDone_) OnStopRequested();
        });
        return false;
    }
    bool closes = true;
    Guarded("QueryUnload", [&] { closes = OnQueryClose(reason); });
    // The question may have ended in the window's unloading already: the host does so when it hears of it.
    if (!loaded_) return true;
    if (!closes) return false;
    if (view_ != nullptr) view_->TellPlace();
    Guarded("Unload", [this] { OnUnload(); });
    loaded_ = false;
    shown_ = false;
    desktop_.Unload(*this);
    return true;
}

void Form::OpenHelp() const { desktop_.OpenHelp(desktop_.HelpFile(), helpContext_); }

void Form::HelpPressed() {
    Guarded("Help", [this] { OpenHelp(); });
}

void Form::Activated() {
    if (view_ != nullptr) view_->TellPlace();
    Guarded("Activate", [this] { OnActivate(); });
}

bool Form::Guarded(std::string_view command, const std::function<void()>& work) noexcept {
    try {
        work();
        return true;
    } catch (const std::exception& error) {
        try {
            ReportError(name_ + "-" + std::string(command), error);
        } catch (...) {  // the report itself failed: nobody is left to be told
        }
    } catch (...) {
    }
    return false;
}

void Form::RunCommand(std::string_view command, const std::function<void()>& work) {
    if (runningCommand_) return;
    runningCommand_ = true;
    Guarded(command, work);
    runningCommand_ = false;
    if (unloadWhenDone_) {
        unloadWhenDone_ = false;
        Unload(CloseReason::Host);
    }
}

void Form::ReportError(const std::string& source, const std::exception& error) {
    desktop_.ShowMessage({.text = error.what(),
                          .title = source,
                          .buttons = Buttons::Ok,
                          .icon = Icon::Critical,
                          .modality = Modality::System},
                         this);
}

}  // namespace lumarin
