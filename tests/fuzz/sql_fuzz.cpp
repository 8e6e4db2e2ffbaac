#include <sqlite3.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Error.h"
#include "fuzz/Promise.h"
#include "host/database/Database.h"
#include "host/database/Schema.h"
#include "host/database/SqlTokenizer.h"
#include "host/database/SqlTranslator.h"

namespace {

/// Nothing when it is refused, which takes a reason.
template <class Read>
auto Accepted(Read read) -> std::optional<decltype(read())> {
    try {
        return read();
    } catch (const lumarin::Error& error) {
        PROMISE(!error.Description().empty());
        return std::nullopt;
    }
}

void CheckTokens(const std::vector<host::SqlToken>& tokens, std::size_t length) {
    PROMISE(!tokens.empty() && tokens.back().kind == host::TokenKind::End);
    for (std::size_t i = 1; i < tokens.size(); ++i) {
        PROMISE(tokens[i - 1].position < tokens[i].position && tokens[i].position <= length);
        PROMISE(tokens[i - 1].kind != host::TokenKind::End);
    }
}

/// SQLite may refuse it: a column or table that there is not.
void CheckTranslation(const std::string& sql) {
    PROMISE(sql.starts_with("SELECT ") && sql.find('\0') == std::string::npos);
    static host::Database database(":memory:", host::DatabaseUse::Changes);
    [[maybe_unused]] static const bool prepared = (host::EnsureSchema(database), true);
    sqlite3_stmt* statement = nullptr;
    const char* rest = nullptr;
    const int code = sqlite3_prepare_v2(database.Handle(), sql.c_str(), -1, &statement, &rest);
    if (code == SQLITE_OK) {
        PROMISE(statement != nullptr && rest == sql.c_str() + sql.size());
        PROMISE(sqlite3_stmt_readonly(statement) != 0 && sqlite3_stmt_isexplain(statement) == 0);
        PROMISE(sqlite3_column_count(statement) > 0 && sqlite3_bind_parameter_count(statement) == 0);
    }
    sqlite3_finalize(statement);
}

}  // namespace

/// Whatever the text, it is refused with a reason or becomes one SELECT statement and nothing behind it.
FUZZ(std::string_view sql) {
    const auto tokens = Accepted([&] { return host::TokenizeSql(sql); });
    if (tokens) CheckTokens(*tokens, sql.size());
    const auto translated = Accepted([&] { return host::TranslateSelect(sql); });
    PROMISE(tokens || !translated);
    if (translated) CheckTranslation(*translated);
}
