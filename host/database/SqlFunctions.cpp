#include "host/database/SqlFunctions.h"

#include "base/Error.h"
#include "base/Text.h"

#include <sqlite3.h>

#include <algorithm>
#include <string>
#include <vector>

namespace host {

namespace {

/// Lower case of the letters of the single-byte code page.
char16_t Lower(char16_t unit) {
    const bool ascii = unit >= u'A' && unit <= u'Z';
    const bool latin = unit >= 0xC0 && unit <= 0xDE && unit != 0xD7;
    if (ascii || latin) return static_cast<char16_t>(unit + 0x20);
    if (unit == 0x152 || unit == 0x160 || unit == 0x17D) return static_cast<char16_t>(unit + 1);
    return unit == 0x178 ? u'\xFF' : unit;
}

/// One place of a pattern: what a single unit of the text may be, or any run of units.
struct PatternStep {
    bool anyRun = false;
    bool negated = false;
    std::vector<std::pair<char16_t, char16_t>> ranges;

    bool Accepts(char16_t unit) const {
        const bool listed = std::any_of(ranges.begin(), ranges.end(), [unit](const auto& range) {
            return range.first <= unit && unit <= range.second;
        });
        return listed != negated;
    }
};

PatternStep ClassOf(std::u16string_view inside) {
    PatternStep step;
    step.negated = inside.size() > 1 && inside.front() == u'!';
    if (step.negated) inside.remove_prefix(1);
    for (std::size_t i = 0; i < inside.size(); ++i) {
        const bool range = i + 2 < inside.size() && inside[i + 1] == u'-';
        step.ranges.emplace_back(Lower(inside[i]), Lower(range ? inside[i + 2] : inside[i]));
        if (range) i += 2;
    }
    return step;
}

std::vector<PatternStep> ParsePattern(std::u16string_view pattern) {
    std::vector<PatternStep> steps;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char16_t unit = pattern[i];
        const std::size_t end = unit == u'[' ? pattern.find(u']', i + 1) : std::u16string_view::npos;
        if (end != std::u16string_view::npos) {
            if (end > i + 1) steps.push_back(ClassOf(pattern.substr(i + 1, end - i - 1)));
            i = end;
        } else if (unit == u'%') {
            steps.push_back({.anyRun = true, .negated = false, .ranges = {}});
        } else if (unit == u'_') {
            steps.push_back({.anyRun = false, .negated = true, .ranges = {}});
        } else {
            steps.push_back({.anyRun = false, .negated = false, .ranges = {{Lower(unit), Lower(unit)}}});
        }
    }
    return steps;
}

std::string_view TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {text == nullptr ? "" : text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

bool IsNumber(sqlite3_value* value) {
    const int type = sqlite3_value_type(value);
    return type == SQLITE_INTEGER || type == SQLITE_FLOAT;
}

bool AnyNull(sqlite3_value** arguments) {
    return sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL;
}

void LikePattern(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (AnyNull(arguments)) return sqlite3_result_null(context);
    sqlite3_result_int(context, MatchesPattern(TextOf(arguments[0]), TextOf(arguments[1])) ? 1 : 0);
}

void Plus(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (AnyNull(arguments)) return sqlite3_result_null(context);
    if (!IsNumber(arguments[0]) || !IsNumber(arguments[1])) {
        const std::string joined = std::string(TextOf(arguments[0])).append(TextOf(arguments[1]));
        return sqlite3_result_text(context, joined.data(), static_cast<int>(joined.size()), SQLITE_TRANSIENT);
    }
    sqlite3_int64 sum = 0;
    const bool whole =
        sqlite3_value_type(arguments[0]) == SQLITE_INTEGER &&
        sqlite3_value_type(arguments[1]) == SQLITE_INTEGER &&
        !__builtin_add_overflow(sqlite3_value_int64(arguments[0]), sqlite3_value_int64(arguments[1]), &sum);
    if (whole) return sqlite3_result_int64(context, sum);
    sqlite3_result_double(context, sqlite3_value_double(arguments[0]) + sqlite3_value_double(arguments[1]));
}

using SqlFunction = void (*)(sqlite3_context*, int, sqlite3_value**);

void Register(sqlite3* connection, const char* name, SqlFunction function) {
    const int code = sqlite3_create_function_v2(connection, name, 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                                nullptr, function, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) throw lumarin::Error(code, "database", sqlite3_errmsg(connection));
}

}  // namespace

bool MatchesPattern(std::string_view pattern, std::string_view text) {
    const std::vector<PatternStep> steps = ParsePattern(lumarin::text::ToUtf16(pattern));
    const std::u16string units = lumarin::text::ToUtf16(text);
    constexpr std::size_t None = static_cast<std::size_t>(-1);
    std::size_t step = 0;
    std::size_t at = 0;
    std::size_t lastRun = None;  // The last "%" passed, and where the text went on behind it.
    std::size_t behindRun = 0;
    while (at < units.size()) {
        if (step < steps.size() && steps[step].anyRun) {
            lastRun = step++;
            behindRun = at;
        } else if (step < steps.size() && steps[step].Accepts(Lower(units[at]))) {
            ++step;
            ++at;
        } else if (lastRun != None) {
            step = lastRun + 1;
            at = ++behindRun;
        } else {
            return false;
        }
    }
    return std::all_of(steps.begin() + static_cast<std::ptrdiff_t>(step), steps.end(),
                       [](const PatternStep& rest) { return rest.anyRun; });
}

void RegisterSqlFunctions(sqlite3* connection) {
    Register(connection, "like_pattern", LikePattern);
    Register(connection, "plus", Plus);
}

}  // namespace host
