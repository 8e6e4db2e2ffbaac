#include <gtest/gtest.h>

#include "host/database/Schema.h"
#include "host/database/SqliteRecordset.h"
#include "lookup/SearchModes.h"
#include "support/TemporaryFolder.h"

namespace lumarin {
namespace {

class SearchOnHost : public ::testing::Test {
protected:
    SearchOnHost() { host::EnsureSchema(database); }

    std::unique_ptr<Recordset> Find(const SearchContext& context, const PropertyCriteria& criteria) {
        return host::Query(
            database, PropertyQuery(context, quote).Statement(criteria, {"A101", "1", "1", {"1", "2"}}, ""));
    }

    testing::TemporaryFolder folder;
    host::Database database{host::DatabasePath(folder.Path()), host::DatabaseUse::Changes};
    clsSQLQuote quote{NoEngineVersion()};
};

TEST_F(SearchOnHost, AwkwardNames_EveryMethod_AreFoundLiterally) {
    const char* const names[] = {"O'Brien", "50%_off", "a[b]c", "half-way", "#1 *?", "Plain", "Zoë \u042D"};
    for (const std::string name : names)
        database.Run("INSERT INTO Listings (OwnerName) VALUES ('" + quote.QuoteLiteral(name) + "')");
    for (const std::string name : names)
        for (int method = match::Beginning; method <= match::End; ++method) {
            const auto found = Find(Listings, {.ownerName = name, .ownerMatch = method});
            ASSERT_EQ(found->RecordCount(), 1) << name << " " << method;
            EXPECT_EQ(found->Field("OwnerName").Text(), name) << method;
        }
}

TEST_F(SearchOnHost, EveryModeAndFilter_IsAStatementThatTheDatabaseTakes) {
    const std::vector<const char*> listings{show::AllListings, show::MyListings, show::OfficeListings,
                                            show::CompanyListings};
    const std::vector<const char*> agents{show::All, show::OfficeAgents};
    for (const SearchContext& context : EveryMode) {
        SCOPED_TRACE(context.tableName);
        database.Run("INSERT INTO " + context.tableName + " (" + context.keyColumn + ") VALUES ('7')");
        const auto all = Find(context, {});
        EXPECT_EQ(all->Field("SelectedId").Text(), "7");
        for (const ResultColumn& column : ResultColumns(context.mode, false))
            EXPECT_NO_THROW(all->Field(column.field)) << column.field;
        for (const char* entry : context.mode == SearchMode::Agent ? agents : listings)
            EXPECT_NO_THROW(
                Find(context, {"x", match::Beginning, "y", match::Beginning, "N", 1, 9, 2001, entry}))
                << entry;
    }
    EXPECT_TRUE(host::Query(database, PropertyQuery::CompanyOffices("none", quote))->Eof());
}

}  // namespace
}  // namespace lumarin
