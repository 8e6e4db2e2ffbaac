#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/Error.h"
#include "entry/Services.h"
#include "entry/VelCommon.h"

namespace lumarin {

/// The host's database failed: a query could not be run, or its rows could not be read. Number, source and
/// description are those of the failure.
class DatabaseError : public Error {
public:
    using Error::Error;
};

/// The rows of one query. The component reads every recordset through one of these: whatever goes wrong,
/// the recordset is closed at the end, once, and that never throws. What fails before throws DatabaseError.
class QueryRows final : public Recordset {
public:
    /// Runs a SELECT statement on the host's connection.
    QueryRows(VelCommon& host, const std::string& sql);

    bool Eof() const override {
        return AtDatabase([&] { return rows_->Eof(); });
    }
    bool Bof() const override {
        return AtDatabase([&] { return rows_->Bof(); });
    }
    bool IsOpen() const override {
        return AtDatabase([&] { return rows_->IsOpen(); });
    }
    void MoveFirst() override {
        AtDatabase([&] { rows_->MoveFirst(); });
    }
    void MoveNext() override {
        AtDatabase([&] { rows_->MoveNext(); });
    }
    int RecordCount() const override {
        return AtDatabase([&] { return rows_->RecordCount(); });
    }
    void Find(const std::string& criterion) override {
        AtDatabase([&] { rows_->Find(criterion); });
    }
    FieldValue Field(std::string_view column) const override {
        return AtDatabase([&] { return rows_->Field(column); });
    }
    void ReadText(std::string_view column, std::string& text) const override {
        AtDatabase([&] { rows_->ReadText(column, text); });
    }
    /// For a caller to whom it matters that this fails; nobody else need call it.
    void Close() override {
        AtDatabase([&] { rows_->Close(); });
    }

private:
    struct Ended {
        void operator()(Recordset* rows) const noexcept;
    };

    template <class Step>
    static std::invoke_result_t<Step> AtDatabase(Step step) {
        try {
            return step();
        } catch (const Error& error) {
            throw DatabaseError(error.Number(), error.Source(), error.Description());
        } catch (const std::exception& error) {
            throw DatabaseError(ApplicationErrorNumber, "database", error.what());
        }
    }

    std::unique_ptr<Recordset, Ended> rows_;
};

}  // namespace lumarin
