#include "host/database/SqlTranslator.h"

#include "host/database/SqlFunctions.h"
#include "support/Reason.h"

#include <gtest/gtest.h>

namespace host {

namespace testing = lumarin::testing;

TEST(SqlTranslator, Statement_IsWrittenForSqlite) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
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
    for (const auto& [name, sql, expected] : cases) EXPECT_EQ(TranslateSelect(sql), expected) << name;
}

TEST(SqlTranslator, AnythingButOneSelect_IsRefused) {
    const std::string deep = "Select " + std::string(5000, '(') + "1" + std::string(5000, ')') + " From t";
    for (const std::string& sql :
         {std::string(), std::string("Delete From Listings"), std::string("Select a From t; Drop Table t"),
          std::string("Select a From t -- x"), std::string("Select load_extension('x') From t"),
          std::string("Select 'a\0b' From t", 19), deep})
        EXPECT_THROW(TranslateSelect(sql), lumarin::Error) << sql.substr(0, 60);
    const std::string reason = testing::ReasonOf([] { TranslateSelect("Select 'O'Brien' From t"); });
    EXPECT_TRUE(testing::Says(reason, "not closed")) << reason;
}

TEST(MatchesPattern, SignsAndClasses_MatchAsTheDialectSays) {
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"a_c", "ac", false},
        {"%ÜLLER", "Jürgen Müller", true},
        {"[Š]%", "š", true},
        {"a[", "A[", true},
        {"[!a-c]_", "dx", true},
        {"[!a-c]_", "bx", false},
        // A character beyond the first plane is two units, of which quoting may put one into brackets.
        {"[\xED\xA0\xBF]\xED\xB8\x80%", "\xF0\x9F\xB8\x80 x", true},
    };
    for (const auto& [pattern, text, matches] : cases)
        EXPECT_EQ(MatchesPattern(pattern, text), matches) << pattern << " ~ " << text;
    EXPECT_FALSE(MatchesPattern("%a%a%a%a%a%a%a%a%b", std::string(5000, 'a'))) << "ends in good time";
}

}  // namespace host
