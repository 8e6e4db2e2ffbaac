#pragma once

#include <string>
#include <string_view>

namespace host {

/// One SELECT statement of the component's dialect as the same statement for SQLite. What differs:
/// "+" joins texts, `IIF` and `IsNull` are functions, `Like` has classes in brackets and "%" and "_" only,
/// names may stand in brackets. Whether a "+" joins or adds follows from its operands; where both are plain
/// columns the values decide. Throws lumarin::Error with the reason and the statement for anything else
/// than one SELECT statement (a closing ";" is allowed), so nothing unknown reaches the database.
std::string TranslateSelect(std::string_view sql);

}  // namespace host
