#include "host/database/SqliteRecordset.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "host/database/SqlTokenizer.h"
#include "host/database/SqlTranslator.h"

#include <algorithm>

namespace host {

namespace {

// The numbers that programs know for these failures of a recordset.
constexpr std::int32_t BadArguments = 3001;
constexpr std::int32_t NoCurrentRow = 3021;
constexpr std::int32_t UnknownColumn = 3265;
constexpr std::int32_t AlreadyClosed = 3704;

// More than anybody keeps open while changes are sent, and read in no time.
constexpr std::size_t RowsReadAtOnce = 10'000;

[[noreturn]] void Fail(std::int32_t number, const std::string& description) {
    throw lumarin::Error(number, "recordset", description);
}

/// "Column = number", the number with or without a minus.
std::pair<std::string, std::int32_t> ParseCriterion(const std::string& criterion) {
    const std::vector<SqlToken> tokens = TokenizeSql(criterion);
    const bool named = tokens[0].kind == TokenKind::Word || tokens[0].kind == TokenKind::BracketedName;
    const bool equals = named && tokens[1].kind == TokenKind::Symbol && tokens[1].text == "=";
    const auto number =
        equals ? lumarin::ParseInteger(criterion.substr(tokens[1].position + 1)) : std::nullopt;
    if (!number) Fail(BadArguments, "The criterion is not of the form \"Column = number\": " + criterion);
    return {tokens[0].text, *number};
}

}  // namespace

SqliteRecordset::SqliteRecordset(std::unique_ptr<Statement> statement) : rows_(std::move(statement)) {
    rows_.HasAtLeast(RowsReadAtOnce);
}

void SqliteRecordset::RequireOpen() const {
    if (!open_) Fail(AlreadyClosed, "The recordset is closed");
}

bool SqliteRecordset::Eof() const {
    RequireOpen();
    return !rows_.HasAtLeast(row_ + 1);
}

bool SqliteRecordset::Bof() const {
    RequireOpen();
    return !rows_.HasAtLeast(1);
}

void SqliteRecordset::MoveFirst() {
    RequireOpen();
    row_ = 0;
    asked_ = 0;
}

void SqliteRecordset::MoveNext() {
    if (Eof()) Fail(NoCurrentRow, "There is no row after the last one");
    ++row_;
    asked_ = 0;
}

int SqliteRecordset::RecordCount() const {
    RequireOpen();
    while (rows_.HasAtLeast(rows_.Count() + 1)) {
    }
    return static_cast<int>(rows_.Count());
}

void SqliteRecordset::Find(const std::string& criterion) {
    RequireOpen();
    const auto [column, number] = ParseCriterion(criterion);
    const std::size_t index = ColumnIndex(column);
    const std::string wanted = std::to_string(number);
    for (; rows_.HasAtLeast(row_ + 1); ++row_) {
        const lumarin::FieldValue value = rows_.Value(row_, index);
        if (!value.IsNull() && value.Text() == wanted) return;
    }
}

lumarin::FieldValue SqliteRecordset::Field(std::string_view column) const {
    if (Eof()) Fail(NoCurrentRow, "There is no current row to read " + std::string(column) + " from");
    return rows_.Value(row_, ColumnIndex(column));
}

void SqliteRecordset::Close() {
    RequireOpen();
    open_ = false;
    rows_.Clear();
}

std::size_t SqliteRecordset::ColumnIndex(std::string_view column) const {
    const std::vector<std::string>& columns = rows_.Columns();
    if (asked_ < columnsAsked_.size() && columns[columnsAsked_[asked_]] == column)
        return columnsAsked_[asked_++];
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const std::string& name) {
        return lumarin::text::EqualsIgnoringCase(name, column);
    });
    if (found == columns.end()) Fail(UnknownColumn, "The query has no column " + std::string(column));
    const auto at = static_cast<std::size_t>(found - columns.begin());
    columnsAsked_.resize(asked_);
    if (asked_ < columns.size()) {
        columnsAsked_.push_back(at);
        ++asked_;
    }
    return at;
}

std::unique_ptr<lumarin::Recordset> Query(Database& database, std::string_view sql) {
    auto statement = std::make_unique<Statement>(database, TranslateSelect(sql));
    if (!statement->ChangesNothing()) RefuseSql("Only a SELECT statement is allowed", sql);
    return std::make_unique<SqliteRecordset>(std::move(statement));
}

}  // namespace host
