#include "host/database/SqlTranslator.h"

#include "base/Error.h"
#include "host/database/SqlFunctions.h"

#include <gtest/gtest.h>

namespace host {
namespace {

struct TranslatorCase {
    const char* name;
    const char* sql;
    const char* expected;
};

TEST(SqlTranslator, Statement_IsWrittenForSqlite) {
    const TranslatorCase cases[] = {
        {"joined texts", "Select a + ', ' + b From t", R"(SELECT ("a" || ', ' || "b") FROM "t")"},
        {"columns before the text", "Select a + b + ' ' From t",
         R"(SELECT (plus("a", "b") || ' ') FROM "t")"},
        {"minus twice is no comment", "Select - -1 From t", R"(SELECT -(-1) FROM "t")"},
        {"pattern", "Select a From t Where a Not Like 'x[%]%' Or b Like 'y'",
         R"(SELECT "a" FROM "t" WHERE NOT like_pattern('x[%]%', "a") OR like_pattern('y', "b"))"},
        {"quotes in names and texts", "Select t.[a\"b] As [Group], 'it''s', \"say \"\"so\"\"\" From t",
         R"(SELECT "t"."a""b" AS "Group", 'it''s', 'say "so"' FROM "t")"},
        {"precedence kept", "Select a From t Where (a = 1 Or b = 2) And Not c Between 1 And 2",
         R"(SELECT "a" FROM "t" WHERE ("a" = 1 OR "b" = 2) AND NOT ("c" BETWEEN 1 AND 2))"},
        {"all clauses",
         "SELECT DISTINCT a, Count(*) AS n FROM t AS x LEFT JOIN u ON x.id = u.id WHERE a IN (SELECT b FROM "
         "v) "
         "GROUP BY a ORDER BY a DESC, n;",
         R"(SELECT DISTINCT "a", count(*) AS "n" FROM "t" AS "x" LEFT JOIN "u" ON "x"."id" = "u"."id" )"
         R"(WHERE "a" IN (SELECT "b" FROM "v") GROUP BY "a" ORDER BY "a" DESC, "n")"},
    };
    for (const TranslatorCase& row : cases) EXPECT_EQ(TranslateSelect(row.sql), row.expected) << row.name;
}

TEST(SqlTranslator, AnythingButOneSelect_IsRefusedWithItsReason) {
    const TranslatorCase cases[] = {
        {"change", "Delete From Listings", "Only a SELECT"},
        {"second statement", "Select a From t; Drop Table t", "Unexpected \"Drop\""},
        {"comment", "Select a From t -- x", "Comments"},
        {"open text", "Select a From t Where b = 'O'Brien'", "not closed"},
        {"unknown function", "Select load_extension('x') From t", "Unknown function"},
        {"empty", "", "Only a SELECT"},
    };
    for (const TranslatorCase& row : cases) {
        try {
            ADD_FAILURE() << row.name << " gave " << TranslateSelect(row.sql);
        } catch (const lumarin::Error& error) {
            EXPECT_NE(error.Description().find(row.expected), std::string::npos)
                << row.name << ": " << error.what();
        }
    }
    const std::string deep = "Select " + std::string(5000, '(') + "1" + std::string(5000, ')') + " From t";
    EXPECT_THROW(TranslateSelect(deep), lumarin::Error);
    EXPECT_THROW(TranslateSelect(std::string("Select 'a\0b' From t", 19)), lumarin::Error);
}

TEST(MatchesPattern, SignsAndClasses_MatchAsTheDialectSays) {
    const struct {
        const char* pattern;
        const char* text;
        bool matches;
    } cases[] = {
        {"%brien", "O'Brien", true},
        {"a_c", "ac", false},
        {"50[%][_]off%", "50 or off", false},
        {"%[[]7]%", "Lot [7] Trust", true},
        {"%ÜLLER", "Jürgen Müller", true},
        {"[Š]%", "š", true},
        {"%", "", true},
        {"a[", "A[", true},
        {"[!a-c]_", "dx", true},
        {"[!a-c]_", "bx", false},
        // A character beyond the first plane is two units, of which quoting may put one into brackets.
        {"[\xED\xA0\xBF]\xED\xB8\x80%", "\xF0\x9F\xB8\x80 x", true},
    };
    for (const auto& row : cases)
        EXPECT_EQ(MatchesPattern(row.pattern, row.text), row.matches) << row.pattern << " ~ " << row.text;
    EXPECT_FALSE(MatchesPattern("%a%a%a%a%a%a%a%a%b", std::string(5000, 'a'))) << "ends in good time";
}

}  // namespace
}  // namespace host
