#include "automation/ports/HostRecordset.h"

namespace lumarin::automation {

namespace {

constexpr int OpenState = 1;

}  // namespace

bool HostRecordset::IsOpen() const { return (IntegerOf(rows_.Get(L"State").Get()) & OpenState) != 0; }

Variant HostRecordset::Fetch(std::string_view column) const {
    if (!collection_) {
        try {
            return rows_.Get(L"Fields", {Variant(column)});
        } catch (const WrongArgumentCount&) {
            collection_ = rows_.AsObject(L"Fields");
        }
    }
    return collection_->GetDefault({Variant(column)});
}

const Object* HostRecordset::Known(std::string_view column) const {
    for (std::size_t tries = columns_.size(); tries > 0; --tries) {
        if (next_ >= columns_.size()) next_ = 0;
        const Column& known = columns_[next_++];
        if (known.name == column) return &known.field;
    }
    return nullptr;
}

Variant HostRecordset::Value(std::string_view column) const {
    if (const Object* known = Known(column)) return known->Get(L"Value");
    Variant fetched = Fetch(column);
    if (fetched.Type() != VT_DISPATCH && fetched.Type() != VT_UNKNOWN) return fetched;
    const Object field(ObjectOf(fetched.Get()), "field " + std::string(column));
    columns_.push_back({std::string(column), field});
    return field.Get(L"Value");
}

void HostRecordset::ReadText(std::string_view column, std::string& text) const {
    const Variant value = Value(column);
    if (value.Type() == VT_BSTR)
        Assign(text, value.Get().bstrVal);
    else
        text = FieldOf(value.Get()).Text();
}

}  // namespace lumarin::automation
