#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace host {

enum class TokenKind { Word, BracketedName, Text, Number, Symbol, End };

/// `text` is the token's meaning: a literal or bracketed name without its delimiters, anything else as it
/// is written. `position` counts bytes from the start of the statement.
struct SqlToken {
    TokenKind kind = TokenKind::End;
    std::string text;
    std::size_t position = 0;
};

/// Cuts a statement of the component's dialect into tokens; the last one is `End`. Throws lumarin::Error for
/// what the dialect does not have: comments, an unfinished literal or name, an unknown sign.
std::vector<SqlToken> TokenizeSql(std::string_view sql);

/// A refused statement: lumarin::Error with the reason and the statement.
[[noreturn]] void RefuseSql(const std::string& reason, std::string_view sql);

}  // namespace host
