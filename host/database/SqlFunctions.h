#pragma once

#include <string_view>

struct sqlite3;

namespace host {

/// Whether a text matches a pattern of the component's dialect, regardless of case: "%" any run, "_" one
/// character, "[abc]", "[a-c]" and "[!a]" classes, in which every sign stands for itself. Characters are
/// UTF-16 code units. A "[" that is never closed stands for itself.
bool MatchesPattern(std::string_view pattern, std::string_view text);

/// Makes the functions that the translated statements call known to a connection:
/// `like_pattern(pattern, text)` as above, and `plus(a, b)`, which adds two numbers and joins anything else.
void RegisterSqlFunctions(sqlite3* connection);

}  // namespace host
