#pragma once

#include <string>
#include <utility>

#include "forms/Event.h"
#include "forms/Geometry.h"
#include "forms/Input.h"

namespace lumarin {

class Form;
class Control;

enum class ControlKind {
    TextBox,
    Button,
    Label,
    ComboBox,
    Slider,
    ListView,
    PictureBox,
    Frame,
    Shape,
    Timer,
    Animation,
    ToolBar,
    OptionButton,
    TabStrip,
    NumberBox,
    ProgressBar
};

/// The front end's side of one control. A control calls it whenever its state changes, by code or by
/// the user; the view reads the control and shows what it finds. List views report more (ListView.h).
class ControlView {
public:
    virtual ~ControlView() = default;
    virtual void StateChanged() = 0;
    virtual void TakeFocus() {}
    virtual void SelectAllText() {}
    /// The control is being destroyed: the view must not read it any more.
    virtual void ControlGoes() {}
};

/// What a person reads or hears about a control besides what it holds; "" is none.
struct ControlTexts {
    /// Stands on a button or a label itself, otherwise on the label that names the control; "&" marks the
    /// access key.
    std::string caption{};
    std::string toolTip{};
    /// What a screen reader calls it, where neither caption nor tool tip does for that.
    std::string accessibleName{};
    std::string accessibleDescription{};
    std::string placeholder{};  ///< stands in a text box while it is empty
};

/// A named control: plain state with events. It is owned by its form as a member, is never copied, and
/// lives as long as the form. The name is the object name in the front end; a member of a control array
/// has an index besides, and its object name is the name, an underscore and the index.
class Control {
public:
    static constexpr int NoIndex = -1;

    Control(Form& form, ControlKind kind, std::string name, ControlTexts texts, int index);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Form& Owner() const { return form_; }
    ControlKind Kind() const { return kind_; }
    const std::string& Name() const { return name_; }
    int Index() const { return index_; }
    /// "cmdMove_0" for a member of an array, the name otherwise.
    std::string ObjectName() const;

    const ControlTexts& Texts() const { return texts_; }
    const std::string& Caption() const { return texts_.caption; }
    void SetCaption(const std::string& caption) { Set(texts_.caption, caption); }

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled) { Set(enabled_, enabled); }
    bool Visible() const { return visible_; }
    void SetVisible(bool visible) { Set(visible_, visible); }
    const std::string& Tag() const { return tag_; }
    void SetTag(std::string tag) { tag_ = std::move(tag); }
    Pointer MousePointer() const { return pointer_; }
    void SetMousePointer(Pointer pointer) { Set(pointer_, pointer); }

    /// Place within the container, in twips. Controls that the toolkit's layouts place report what the
    /// layout gave them (`Placed`); the others stand where `Move` put them.
    const Rect& Bounds() const { return bounds_; }
    double Left() const { return bounds_.left; }
    double Top() const { return bounds_.top; }
    double Width() const { return bounds_.width; }
    double Height() const { return bounds_.height; }
    void Move(const Rect& bounds) { Set(bounds_, bounds); }
    /// For the front end: the layout has placed the control here. Raises `Resize` when the size changed.
    void Placed(const Rect& bounds);

    void SetFocus();

    /// For the front end: changes are reported to this view; null detaches. The view is not owned.
    void Attach(ControlView* view) { view_ = view; }

    Event<> GotFocus, Resize;
    void TookFocus() { Raise("GotFocus", GotFocus); }

protected:
    template <class T>
    void Set(T& member, const T& value) {
        if (member == value) return;
        member = value;
        Changed();
    }
    void Changed();
    ControlView* View() const { return view_; }

    /// Runs the event's handler inside the form's guard: nothing thrown leaves the window.
    template <class... Args>
    void Raise(const char* event, const Event<Args...>& which, Args... args);

private:
    Form& form_;
    ControlKind kind_;
    std::string name_;
    ControlTexts texts_;
    int index_;
    bool enabled_ = true;
    bool visible_ = true;
    std::string tag_;
    Pointer pointer_ = Pointer::Default;
    Rect bounds_;
    ControlView* view_ = nullptr;
};

/// What every kind of control is derived from.
template <ControlKind OfKind>
class ControlOf : public Control {
public:
    ControlOf(Form& form, std::string name, ControlTexts texts = {}, int index = NoIndex)
        : Control(form, OfKind, std::move(name), std::move(texts), index) {}
};

}  // namespace lumarin

#include "forms/Form.h"

namespace lumarin {

template <class... Args>
void Control::Raise(const char* event, const Event<Args...>& which, Args... args) {
    form_.Guarded(name_ + "_" + event, [&] { which.Raise(args...); });
}

}  // namespace lumarin
