#include "forms/Controls.h"

#include <algorithm>

namespace lumarin {

Control::Control(Form& form, ControlKind kind, std::string name, ControlTexts texts, int index)
    : form_(form), kind_(kind), name_(std::move(name)), texts_(std::move(texts)), index_(index) {
    form_.Enter(*this);
}

Control::~Control() {
    if (view_ != nullptr) view_->ControlGoes();
}

std::string Control::ObjectName() const {
    return index_ == NoIndex ? name_ : name_ + "_" + std::to_string(index_);
}

void Control::Placed(const Rect& bounds) {
    const bool resized = bounds.width != bounds_.width || bounds.height != bounds_.height;
    bounds_ = bounds;
    if (resized) Raise("Resize", Resize);
}

void Control::SetFocus() {
    if (view_ != nullptr) view_->TakeFocus();
}

void Control::Changed() {
    if (view_ != nullptr) view_->StateChanged();
}

void TextBox::SetText(const std::string& text) {
    if (text == text_) return;
    text_ = text;
    Changed();
    Raise("Change", Change);
}

void TextBox::SelectAll() {
    if (View() != nullptr) View()->SelectAllText();
}

bool TextBox::PressKey(int code) {
    KeyPress key{code};
    Raise<KeyPress&>("KeyPress", KeyPressed, key);
    return !key.discarded;
}

void Button::Press() {
    if (Enabled() && Visible()) Raise("Click", Click);
}

void ComboBox::Clear() {
    items_.clear();
    listIndex_ = -1;
    Changed();
}

void ComboBox::AddItem(const std::string& text, std::int32_t data) {
    items_.push_back({text, data});
    Changed();
}

void ComboBox::SetListIndex(int index) {
    index = std::clamp(index, -1, static_cast<int>(items_.size()) - 1);
    if (index == listIndex_) return;
    listIndex_ = index;
    Changed();
    Raise("Click", Click);
}

std::string ComboBox::Text() const {
    return listIndex_ < 0 ? "" : items_[static_cast<std::size_t>(listIndex_)].text;
}

std::int32_t ComboBox::ItemData() const {
    return listIndex_ < 0 ? 0 : items_[static_cast<std::size_t>(listIndex_)].data;
}

void Slider::SetRange(int min, int max, int smallChange, int largeChange) {
    min_ = min;
    max_ = max;
    smallChange_ = smallChange;
    largeChange_ = largeChange;
    Changed();
}

void Slider::SetValue(int value) {
    value = std::clamp(value, min_, max_);
    if (value == value_) return;
    value_ = value;
    Changed();
    Raise("Change", Change);
}

void OptionButton::Choose() {
    for (Control* control : Owner().Controls()) {
        if (control == this || control->Kind() != ControlKind::OptionButton) continue;
        auto& other = static_cast<OptionButton&>(*control);
        if (other.group_ == group_) other.Set(other.value_, false);
    }
    if (value_) return;
    value_ = true;
    Changed();
    Raise("Click", Click);
}

void TabStrip::SetTab(int tab) {
    if (tab == tab_) return;
    if (TabVisible(tab)) tab_ = tab;
    Changed();
    if (tab == tab_) Raise("Click", Click);
}

void TabStrip::SetTabVisible(int tab, bool visible) {
    if (visible)
        hidden_.erase(tab);
    else
        hidden_.insert(tab);
    Changed();
}

std::string TabStrip::TabNote(int tab) const {
    const auto found = notes_.find(tab);
    return found == notes_.end() ? std::string() : found->second;
}

void TabStrip::SetTabNote(int tab, const std::string& note) { Set(notes_[tab], note); }

void NumberBox::SetRange(std::int32_t min, std::int32_t max) {
    min_ = min;
    max_ = max;
    Changed();
}

void NumberBox::SetValue(std::optional<std::int32_t> value) {
    if (value) value = std::clamp(*value, min_, max_);
    if (value == value_) return;
    value_ = value;
    Changed();
    Raise("Change", Change);
}

void PictureBox::SetImage(PicturePtr image) {
    image_ = std::move(image);
    Changed();
}

void PictureBox::DropFiles(const std::vector<std::string>& paths) {
    if (Enabled() && acceptsFiles_)
        Raise<const std::vector<std::string>&>("OLEDragDrop", FilesDropped, paths);
}

bool Frame::PressKey(const KeyDown& key) {
    bool used = false;
    Raise<const KeyDown&, bool&>("KeyDown", KeyPressed, key, used);
    return used;
}

void Timer::Tick() {
    if (Enabled()) Raise("Timer", Elapsed);
}

}  // namespace lumarin
