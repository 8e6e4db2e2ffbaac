#pragma once

#include "automation/calls/Object.h"
#include "automation/ports/FieldValues.h"
#include "entry/Services.h"

#include <optional>
#include <string>
#include <vector>

namespace lumarin::automation {

/// A recordset of the host's: the platform's own, or any object with these members. `Fields` takes the
/// column's name as its argument or gives a collection whose default member does. What comes is the column's
/// field, which is kept: its `Value` is that of whatever row is the current one. It may also be the value
/// itself.
class HostRecordset final : public Recordset {
public:
    explicit HostRecordset(Object rows) : rows_(std::move(rows)) {}

    bool Eof() const override { return TruthOf(rows_.Get(L"EOF").Get()); }
    bool Bof() const override { return TruthOf(rows_.Get(L"BOF").Get()); }
    bool IsOpen() const override;
    void MoveFirst() override { rows_.Call(L"MoveFirst"); }
    void MoveNext() override { rows_.Call(L"MoveNext"); }
    int RecordCount() const override { return IntegerOf(rows_.Get(L"RecordCount").Get()); }
    void Find(const std::string& criterion) override { rows_.Call(L"Find", {Variant(criterion)}); }
    FieldValue Field(std::string_view column) const override { return FieldOf(Value(column).Get()); }
    void ReadText(std::string_view column, std::string& text) const override;
    void Close() override { rows_.Call(L"Close"); }

private:
    struct Column {
        std::string name;
        Object field;
    };

    const Object* Known(std::string_view column) const;
    Variant Fetch(std::string_view column) const;
    Variant Value(std::string_view column) const;

    Object rows_;
    mutable std::optional<Object> collection_;  ///< of the fields; nothing where `Fields` takes the name
    mutable std::vector<Column> columns_;       ///< those that were asked for
    mutable std::size_t next_ = 0;              ///< of them: most callers ask in the same order in every row
};

}  // namespace lumarin::automation
