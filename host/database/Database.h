#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace host {

/// How a connection may be used. `Queries` can change nothing, whatever the statement says.
enum class DatabaseUse { Queries, Changes };

/// One connection to the host's database file, which is created when it is missing. Another process may
/// have the same file open: a statement waits half a minute for it before it fails. Every failure is a
/// lumarin::Error with the engine's number and reason and the statement. One thread at a time.
class Database {
public:
    Database(const std::string& path, DatabaseUse use);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Runs statements that have no parameters and whose rows, if any, nobody wants.
    void Run(const std::string& sql);

    sqlite3* Handle() const { return handle_; }
    [[noreturn]] void Fail(int code, std::string_view sql) const;

private:
    sqlite3* handle_ = nullptr;
};

/// A value of a statement's current row; a text is valid until the next step.
struct ColumnValue {
    enum class Kind { Null, Integer, Text };

    Kind kind = Kind::Null;
    std::int64_t integer = 0;
    std::string_view text{};
};

/// One prepared statement; must not outlive its database. Parameters count from 1, columns from 0.
class Statement {
public:
    Statement(Database& database, std::string_view sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& Bind(int parameter, std::int64_t number);
    Statement& Bind(int parameter, std::string_view text);

    /// Goes to the next row; false when there is none.
    bool Step();
    /// Runs to the end and makes the statement ready for new parameters.
    void Finish();

    int ColumnCount() const;
    std::string ColumnName(int column) const;
    std::int64_t Integer(int column) const;
    std::string Text(int column) const;
    /// What stands in the column, at the least cost.
    ColumnValue Value(int column) const;
    bool ChangesNothing() const;

private:
    void Check(int code) const;

    Database& database_;
    std::string sql_;
    sqlite3_stmt* handle_ = nullptr;
};

/// Holds the database's write lock from construction on. Without `Commit` everything is undone.
class Transaction {
public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

private:
    Database& database_;
    bool open_ = true;
};

}  // namespace host
