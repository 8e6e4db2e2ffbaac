#pragma once

#include "entry/Services.h"
#include "host/database/Database.h"
#include "host/database/RowStore.h"

#include <memory>
#include <string>
#include <vector>

namespace host {

/// The rows of a query. Up to ten thousand are read at once, and a query that has no more is finished then
/// and independent of the connection. The rest of a longer one is read as far as somebody asks for it, and
/// what was read is kept: such a recordset must not outlive its database, sees the tables as they were when
/// it began, and until its end is reached or it is closed, others can read but not commit changes. Reading
/// without a current row, an unknown column and any use after `Close` throw lumarin::Error; what moves, and
/// `RecordCount`, even when a row cannot be read.
class SqliteRecordset final : public lumarin::Recordset {
public:
    explicit SqliteRecordset(std::unique_ptr<Statement> statement);

    bool Eof() const override;
    bool Bof() const override;
    bool IsOpen() const override { return open_; }
    void MoveFirst() override;
    void MoveNext() override;
    /// Reads all rows.
    int RecordCount() const override;
    void Find(const std::string& criterion) override;
    lumarin::FieldValue Field(std::string_view column) const override;
    void Close() override;

private:
    void RequireOpen() const;
    std::size_t ColumnIndex(std::string_view column) const;

    mutable RowStore rows_;
    std::size_t row_ = 0;
    // Most callers ask for the same columns in the same order in every row.
    mutable std::vector<std::size_t> columnsAsked_;
    mutable std::size_t asked_ = 0;  ///< so many of them in the current row
    bool open_ = true;
};

/// Runs one SELECT statement of the component's dialect. Throws lumarin::Error with the reason and the
/// statement when it is refused or fails.
std::unique_ptr<lumarin::Recordset> Query(Database& database, std::string_view sql);

}  // namespace host
