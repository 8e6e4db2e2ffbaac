#pragma once

#include "entry/Services.h"
#include "host/database/Database.h"

#include <memory>
#include <string>
#include <vector>

namespace host {

/// The rows of a finished query, held in memory and independent of the connection. Reading without a
/// current row, an unknown column and any use after `Close` throw lumarin::Error.
class SqliteRecordset final : public lumarin::Recordset {
public:
    /// Runs the statement to its end.
    explicit SqliteRecordset(Statement& statement);

    bool Eof() const override;
    bool Bof() const override;
    bool IsOpen() const override { return open_; }
    void MoveFirst() override;
    void MoveNext() override;
    int RecordCount() const override;
    void Find(const std::string& criterion) override;
    lumarin::FieldValue Field(std::string_view column) const override;
    void Close() override;

private:
    void RequireOpen() const;
    std::size_t ColumnIndex(std::string_view column) const;

    std::vector<std::string> columns_;
    std::vector<std::vector<lumarin::FieldValue>> rows_;
    std::size_t row_ = 0;
    bool open_ = true;
};

/// Runs one SELECT statement of the component's dialect. Throws lumarin::Error with the reason and the
/// statement when it is refused or fails.
std::unique_ptr<lumarin::Recordset> Query(Database& database, std::string_view sql);

}  // namespace host
