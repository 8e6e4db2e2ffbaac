#include "host/automation/RecordsetObject.h"

namespace host {

using lumarin::FieldValue;
using lumarin::automation::Arguments;
using lumarin::automation::DispatchObject;
using lumarin::automation::MakeObject;
using lumarin::automation::TextOf;
using lumarin::automation::Variant;

namespace {

Variant ToVariant(FieldValue value) {
    if (value.IsNull()) return Variant::Null();
    const std::int64_t* number = value.Number();
    if (number == nullptr) return Variant(std::move(value).Text());
    const auto usual = static_cast<std::int32_t>(*number);
    return usual == *number ? Variant(usual) : Variant(*number);
}

class FieldObject final : public DispatchObject {
public:
    FieldObject(std::shared_ptr<lumarin::Recordset> rows, const std::string& column) {
        Member(L"Value",
               [rows = std::move(rows), column](const Arguments&) { return ToVariant(rows->Field(column)); });
        MakeDefault();
        Member(L"Name", [column](const Arguments&) { return Variant(column); });
    }
};

class FieldsObject final : public DispatchObject {
public:
    explicit FieldsObject(Function field) {
        Member(L"Item", std::move(field));
        MakeDefault();
    }
};

}  // namespace

RecordsetObject::RecordsetObject(std::unique_ptr<lumarin::Recordset> rows) : rows_(std::move(rows)) {
    Member(L"Fields", [this](const Arguments& arguments) {
        if (arguments.Count() > 0) return Variant(Field(TextOf(arguments[0])).Get());
        // The collection keeps the recordset.
        const auto item = [self = Microsoft::WRL::ComPtr<RecordsetObject>(this)](const Arguments& names) {
            return Variant(self->Field(TextOf(names[0])).Get());
        };
        return Variant(MakeObject<FieldsObject>(item).Get());
    });
    MakeDefault();
    AddMoves();
    AddState();
}

RecordsetObject::Object RecordsetObject::Field(const std::string& column) {
    Object& field = fields_[column];
    if (!field) field = MakeObject<FieldObject>(rows_, column);
    return field;
}

void RecordsetObject::AddMoves() {
    Member(L"MoveFirst", [this](const Arguments&) {
        rows_->MoveFirst();
        return Variant();
    });
    Member(L"MoveNext", [this](const Arguments&) {
        rows_->MoveNext();
        return Variant();
    });
    Member(L"Find", [this](const Arguments& arguments) {
        rows_->Find(TextOf(arguments[0]));
        return Variant();
    });
    Member(L"Close", [this](const Arguments&) {
        rows_->Close();
        return Variant();
    });
}

void RecordsetObject::AddState() {
    Member(L"EOF", [this](const Arguments&) { return Variant(rows_->Eof()); });
    Member(L"BOF", [this](const Arguments&) { return Variant(rows_->Bof()); });
    Member(L"RecordCount", [this](const Arguments&) { return Variant(std::int32_t{rows_->RecordCount()}); });
    Member(L"State", [this](const Arguments&) {
        constexpr std::int32_t Closed = 0, Open = 1;
        return Variant(rows_->IsOpen() ? Open : Closed);
    });
}

}  // namespace host
