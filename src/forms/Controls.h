#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "forms/Picture.h"

namespace lumarin {

/// A fixed group of controls of one name, told apart by an index from 0.
template <class T, int Count>
class ControlArray {
public:
    ControlArray(Form& form, const std::string& name, const ControlTexts (&texts)[Count] = {}) {
        for (int i = 0; i < Count; ++i) items_.emplace_back(form, name, texts[i], i);
    }
    T& operator()(int index) { return items_.at(static_cast<std::size_t>(index)); }
    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }
    static constexpr int Size() { return Count; }

private:
    std::deque<T> items_;  // never moves its elements: controls keep their address
};

class TextBox : public ControlOf<ControlKind::TextBox> {
public:
    using ControlOf::ControlOf;

    const std::string& Text() const { return text_; }
    /// Set by code and by the user alike; raises `Change` when the text differs.
    void SetText(const std::string& text);
    /// Selects the whole text, so that typing replaces it.
    void SelectAll();
    /// For the front end, before a key takes effect: false when a handler discarded it.
    bool PressKey(int code);

    Event<> Change;
    Event<KeyPress&> KeyPressed;

private:
    std::string text_;
};

class Button : public ControlOf<ControlKind::Button> {
public:
    using ControlOf::ControlOf;

    /// Does nothing while the button is disabled or hidden.
    void Press();
    void MouseWentDown() { Raise("MouseDown", MouseDown); }
    void MouseWentUp() { Raise("MouseUp", MouseUp); }

    Event<> Click, MouseDown, MouseUp;
};

class Label : public ControlOf<ControlKind::Label> {
public:
    using ControlOf::ControlOf;
};

/// A drop-down list; each entry has a text and a number of its own.
class ComboBox : public ControlOf<ControlKind::ComboBox> {
public:
    struct Item {
        std::string text;
        std::int32_t data = 0;
        bool operator==(const Item&) const = default;
    };

    using ControlOf::ControlOf;

    const std::vector<Item>& Items() const { return items_; }
    void Clear();
    void AddItem(const std::string& text, std::int32_t data = 0);
    /// -1 when nothing is chosen.
    int ListIndex() const { return listIndex_; }
    /// Raises `Click` when the choice differs.
    void SetListIndex(int index);
    /// Text of the chosen entry; "" when nothing is chosen.
    std::string Text() const;
    std::int32_t ItemData() const;

    Event<> Click;

private:
    std::vector<Item> items_;
    int listIndex_ = -1;
};

class Slider : public ControlOf<ControlKind::Slider> {
public:
    using ControlOf::ControlOf;

    int Min() const { return min_; }
    int Max() const { return max_; }
    int SmallChange() const { return smallChange_; }
    int LargeChange() const { return largeChange_; }
    int Value() const { return value_; }
    void SetRange(int min, int max, int smallChange, int largeChange);
    /// Kept within the range; raises `Change` when the value differs.
    void SetValue(int value);

    Event<> Change;

private:
    int min_ = 0, max_ = 100, smallChange_ = 1, largeChange_ = 10, value_ = 0;
};

/// One of a group of choices: choosing one gives up the others of the group.
class OptionButton : public ControlOf<ControlKind::OptionButton> {
public:
    /// A member of a control array: the array is the group.
    OptionButton(Form& form, std::string name, ControlTexts texts, int index)
        : ControlOf(form, std::move(name), std::move(texts), index), group_(Name()) {}
    /// One of several with names of their own.
    OptionButton(Form& form, std::string name, std::string group, ControlTexts texts)
        : ControlOf(form, std::move(name), std::move(texts)), group_(std::move(group)) {}

    const std::string& Group() const { return group_; }
    bool Value() const { return value_; }
    /// Choosing raises `Click`. A choice is given up only by choosing another of the group.
    void Choose();

    Event<> Click;

private:
    std::string group_;
    bool value_ = false;
};

/// Pages of a window, one of which is in front; the front end's design says what stands on each.
class TabStrip : public ControlOf<ControlKind::TabStrip> {
public:
    TabStrip(Form& form, std::string name, std::vector<std::string> captions)
        : ControlOf(form, std::move(name)), captions_(std::move(captions)) {}

    /// One for each page, in their order.
    const std::vector<std::string>& Captions() const { return captions_; }
    int Tab() const { return tab_; }
    /// Raises `Click` when another page comes to the front. A hidden page stays where it is.
    void SetTab(int tab);
    /// A hidden page cannot be brought to the front; the caller leaves it first. All are visible at first.
    bool TabVisible(int tab) const { return !hidden_.contains(tab); }
    void SetTabVisible(int tab, bool visible);
    /// A few words that stand behind a page's caption; "" for none.
    std::string TabNote(int tab) const;
    void SetTabNote(int tab, const std::string& note);

    Event<> Click;

private:
    std::vector<std::string> captions_;
    int tab_ = 0;
    std::set<int> hidden_;
    std::map<int, std::string> notes_;
};

/// A box for a whole number, which may be left empty.
class NumberBox : public ControlOf<ControlKind::NumberBox> {
public:
    using ControlOf::ControlOf;

    std::int32_t Min() const { return min_; }
    std::int32_t Max() const { return max_; }
    void SetRange(std::int32_t min, std::int32_t max);
    const std::optional<std::int32_t>& Value() const { return value_; }
    /// Kept within the range; raises `Change` when it differs.
    void SetValue(std::optional<std::int32_t> value);

    Event<> Change;

private:
    std::int32_t min_ = 0, max_ = 2147483647;
    std::optional<std::int32_t> value_;
};

class ProgressBar : public ControlOf<ControlKind::ProgressBar> {
public:
    using ControlOf::ControlOf;

    int Max() const { return max_; }
    void SetMax(int max) { Set(max_, max); }
    int Value() const { return value_; }
    void SetValue(int value) { Set(value_, value); }

private:
    int max_ = 100, value_ = 0;
};

/// Shows a picture, stretched over the control with its proportions kept. Mouse events carry twips
/// relative to the control.
class PictureBox : public ControlOf<ControlKind::PictureBox> {
public:
    using ControlOf::ControlOf;

    const PicturePtr& Image() const { return image_; }
    /// Null clears the box.
    void SetImage(PicturePtr image);
    /// What becomes of the picture's colour values where it is shown; the picture itself stays as it is.
    const std::optional<ToneTable>& Tones() const { return tones_; }
    void SetTones(const std::optional<ToneTable>& tones) { Set(tones_, tones); }
    bool AcceptsFiles() const { return acceptsFiles_; }
    void SetAcceptsFiles(bool accepts) { Set(acceptsFiles_, accepts); }

    // For the front end.
    void MouseWentDown(const Mouse& mouse) { Raise("MouseDown", MouseDown, mouse); }
    void MouseMoved(const Mouse& mouse) { Raise("MouseMove", MouseMove, mouse); }
    void MouseWentUp(const Mouse& mouse) { Raise("MouseUp", MouseUp, mouse); }
    void DropFiles(const std::vector<std::string>& paths);
    /// Neither a file nor a picture was dropped: a web address, a text.
    void DropOther() { Raise("OLEDragDrop", OtherDropped); }

    Event<Mouse> MouseDown, MouseMove, MouseUp;
    Event<const std::vector<std::string>&> FilesDropped;
    Event<> OtherDropped;

private:
    PicturePtr image_;
    std::optional<ToneTable> tones_;
    bool acceptsFiles_ = false;
};

/// What the wheel does over a frame; with Control it zooms in any case.
enum class WheelUse { Zooms, ZoomsWithControl };

/// A visible area that holds other controls; it can take the keyboard and the mouse itself. Places in it and
/// those of mouse events are twips before the lens, through which its contents are seen.
class Frame : public ControlOf<ControlKind::Frame> {
public:
    using ControlOf::ControlOf;

    const lumarin::Lens& Lens() const { return lens_; }
    /// For contents that the code places.
    void SetLens(const lumarin::Lens& lens) { Set(lens_, lens); }
    lumarin::WheelUse WheelUse() const { return wheelUse_; }
    void SetWheelUse(lumarin::WheelUse use) { wheelUse_ = use; }

    void MouseWentDown(const Mouse& mouse) { Raise("MouseDown", MouseDown, mouse); }
    void MouseMoved(const Mouse& mouse) { Raise("MouseMove", MouseMove, mouse); }
    void MouseWentUp(const Mouse& mouse) { Raise("MouseUp", MouseUp, mouse); }
    /// True when a handler used the key.
    bool PressKey(const KeyDown& key);
    void ReleaseKey(Key key) { Raise("KeyUp", KeyReleased, key); }
    void Zoom(const ZoomStep& step) { Raise("Zoom", Zoomed, step); }
    void TurnWheel(int notches) { Raise("Wheel", WheelTurned, notches); }

    Event<Mouse> MouseDown, MouseMove, MouseUp;
    Event<const KeyDown&, bool&> KeyPressed;
    Event<Key> KeyReleased;
    Event<ZoomStep> Zoomed;
    Event<int> WheelTurned;  ///< by so many notches towards the user, where the wheel does not zoom

private:
    lumarin::Lens lens_;
    lumarin::WheelUse wheelUse_ = lumarin::WheelUse::Zooms;
};

/// The lines that a shape shows: its own thirds, or a grid over the whole picture to straighten that by.
enum class Guides { Thirds, Grid };

/// A drawn rectangle over its container, transparent to the mouse. It shows guides, and what lies outside of
/// it within the container's picture is dimmed.
class Shape : public ControlOf<ControlKind::Shape> {
public:
    using ControlOf::ControlOf;

    lumarin::Guides Guides() const { return guides_; }
    void SetGuides(lumarin::Guides guides) { Set(guides_, guides); }

private:
    lumarin::Guides guides_ = lumarin::Guides::Thirds;
};

class Timer : public ControlOf<ControlKind::Timer> {
public:
    Timer(Form& form, std::string name) : ControlOf(form, std::move(name)) { SetEnabled(false); }

    /// Milliseconds between ticks.
    int Interval() const { return interval_; }
    void SetInterval(int milliseconds) { Set(interval_, milliseconds); }
    /// For the front end; nothing while the timer is disabled.
    void Tick();

    Event<> Elapsed;

private:
    int interval_ = 0;
};

/// Plays a film file over and over. A file that cannot be played shows nothing.
class Animation : public ControlOf<ControlKind::Animation> {
public:
    using ControlOf::ControlOf;

    const std::string& File() const { return file_; }
    void Open(const std::string& file) { Set(file_, file); }
    bool AutoPlay() const { return autoPlay_; }
    void SetAutoPlay(bool play) { Set(autoPlay_, play); }

private:
    std::string file_;
    bool autoPlay_ = false;
};

}  // namespace lumarin
