#include "automation/ports/HostRecordset.h"

#include "automation/ports/FieldValues.h"

#include <algorithm>

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

FieldValue HostRecordset::Field(std::string_view column) const {
    const auto known = std::find_if(columns_.begin(), columns_.end(),
                                    [column](const Column& other) { return other.name == column; });
    if (known != columns_.end() && known->field) return FieldOf(known->field->Get(L"Value").Get());
    const Variant fetched = Fetch(column);
    if (fetched.Type() != VT_DISPATCH && fetched.Type() != VT_UNKNOWN) return FieldOf(fetched.Get());
    const Object field(ObjectOf(fetched.Get()), "field " + std::string(column));
    columns_.push_back({std::string(column), field});
    return FieldOf(field.Get(L"Value").Get());
}

}  // namespace lumarin::automation
