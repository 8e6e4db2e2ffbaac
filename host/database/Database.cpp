#include "host/database/Database.h"

#include "base/Error.h"
#include "base/FileSystem.h"
#include "host/database/SqlFunctions.h"

#include <sqlite3.h>

namespace host {

namespace {

constexpr int WaitMilliseconds = 30'000;
constexpr std::size_t LongestQuotedStatement = 2'000;

}  // namespace

Database::Database(const std::string& path, DatabaseUse use) {
    // Also for queries: a connection that may not write could not undo what a killed process left halfway.
    // Without the engine's locks, which cost more than reading a short value: one thread at a time is the
    // rule.
    const int code =
        sqlite3_open_v2(lumarin::files::LibraryPath(path).c_str(), &handle_,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    try {
        if (code != SQLITE_OK) Fail(code, "open " + path);
        sqlite3_extended_result_codes(handle_, 1);
        sqlite3_busy_timeout(handle_, WaitMilliseconds);
        // An unknown column in quotes is an error, not a text.
        sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
        sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
        RegisterSqlFunctions(handle_);
        if (use == DatabaseUse::Queries) Run("PRAGMA query_only = 1");
    } catch (...) {
        sqlite3_close_v2(handle_);
        throw;
    }
}

Database::~Database() { sqlite3_close_v2(handle_); }

void Database::Run(const std::string& sql) {
    const int code = sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) Fail(code, sql);
}

void Database::Fail(int code, std::string_view sql) const {
    const std::string reason = handle_ != nullptr ? sqlite3_errmsg(handle_) : sqlite3_errstr(code);
    std::string statement(sql.substr(0, LongestQuotedStatement));
    if (statement.size() < sql.size()) statement += "...";
    throw lumarin::Error(code, "database", reason + " in: " + statement);
}

Statement::Statement(Database& database, std::string_view sql) : database_(database), sql_(sql) {
    const int code =
        sqlite3_prepare_v2(database.Handle(), sql_.data(), static_cast<int>(sql_.size()), &handle_, nullptr);
    if (code != SQLITE_OK) database.Fail(code, sql_);
}

Statement::~Statement() { sqlite3_finalize(handle_); }

void Statement::Check(int code) const {
    if (code != SQLITE_OK) database_.Fail(code, sql_);
}

Statement& Statement::Bind(int parameter, std::int64_t number) {
    Check(sqlite3_bind_int64(handle_, parameter, number));
    return *this;
}

Statement& Statement::Bind(int parameter, std::string_view text) {
    Check(
        sqlite3_bind_text(handle_, parameter, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT));
    return *this;
}

bool Statement::Step() {
    const int code = sqlite3_step(handle_);
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) database_.Fail(code, sql_);
    return false;
}

void Statement::Finish() {
    while (Step()) {
    }
    Check(sqlite3_reset(handle_));
}

int Statement::ColumnCount() const { return sqlite3_column_count(handle_); }

std::string Statement::ColumnName(int column) const { return sqlite3_column_name(handle_, column); }

std::int64_t Statement::Integer(int column) const { return sqlite3_column_int64(handle_, column); }

std::string Statement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle_, column));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(handle_, column))};
}

ColumnValue Statement::Value(int column) const {
    sqlite3_value* value = sqlite3_column_value(handle_, column);
    switch (sqlite3_value_type(value)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER:
            return {ColumnValue::Kind::Integer, sqlite3_value_int64(value)};
        default: {
            const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
            const auto length = static_cast<std::size_t>(sqlite3_value_bytes(value));
            return {ColumnValue::Kind::Text, 0, text == nullptr ? "" : std::string_view(text, length)};
        }
    }
}

bool Statement::ChangesNothing() const { return sqlite3_stmt_readonly(handle_) != 0; }

Transaction::Transaction(Database& database) : database_(database) { database_.Run("BEGIN IMMEDIATE"); }

Transaction::~Transaction() {
    if (open_) sqlite3_exec(database_.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::Commit() {
    database_.Run("COMMIT");
    open_ = false;
}

}  // namespace host
