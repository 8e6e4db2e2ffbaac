#include <gtest/gtest.h>

#include "host/database/Schema.h"
#include "host/database/SqliteRecordset.h"
#include "lookup/SearchModes.h"
#include "lookup/clsAllowedStatuses.h"
#include "support/TemporaryFolder.h"

namespace lumarin {
namespace {

const char* const Names[] = {"O'Brien", "50%_off", "a[b]c", "half-way", "#1 *?", "Plain", "Zoë \u042D"};

class SearchOnHost : public ::testing::Test {
protected:
    SearchOnHost() : database(host::DatabasePath(folder.Path()), host::DatabaseUse::Changes) {
        host::EnsureSchema(database);
        int number = 1;
        for (const std::string name : Names) {
            const std::string key = "'" + std::to_string(number) + "', ";
            const std::string quoted = "'" + quote.QuoteLiteral(name) + "'";
            for (const char* table : {"Listings", "Rentals"})
                Insert(std::string(table) + " (ListNum, OwnerName, StreetName, LstStatus)",
                       key + quoted + ", " + quoted + ", '2001'");
            Insert("Tax (TaxId, TaxOwnerName, TaxStreetName)", key + quoted + ", " + quoted);
            Insert("Office (OffOfficeId, OffName1)", key + quoted);
            Insert("Member (MemMemberId, MemLastName, MemFirstName)", key + quoted + ", ''");
            ++number;
        }
    }
    void Insert(const std::string& into, const std::string& values) {
        database.Run("INSERT INTO " + into + " VALUES (" + values + ")");
    }

    /// The keys that a search finds, joined.
    std::string Find(const SearchContext& context, const PropertyCriteria& criteria) {
        const SearchUser user{"A101", "1", "1", {"1", "2"}};
        const std::string statement =
            PropertyQuery(context, quote)
                .Statement(criteria, user, clsAllowedStatuses().SQLAllowedStatuses(""));
        std::string keys;
        for (const auto rows = host::Query(database, statement); !rows->Eof(); rows->MoveNext()) {
            keys += rows->Field("SelectedId").Text();
            for (const ResultColumn& column : ResultColumns(context.mode, false)) rows->Field(column.field);
        }
        return keys;
    }

    testing::TemporaryFolder folder;
    host::Database database;
    clsSQLQuote quote{NoEngineVersion()};
};

TEST_F(SearchOnHost, AwkwardNames_EveryModeAndMethod_AreFoundLiterally) {
    for (const SearchContext& context : EveryMode)
        for (std::size_t i = 0; i < std::size(Names); ++i)
            for (int method = match::Beginning; method <= match::End; ++method) {
                // An agent's name goes on after the last name.
                const bool agent = context.mode == SearchMode::Agent;
                const std::string name = Names[i] + std::string(agent && method >= match::Exact ? ",  " : "");
                const PropertyCriteria criteria =
                    context.mode == SearchMode::Rental
                        ? PropertyCriteria{.streetName = name, .streetMatch = method}
                        : PropertyCriteria{.ownerName = name, .ownerMatch = method};
                EXPECT_EQ(Find(context, criteria), std::to_string(i + 1))
                    << context.tableName << " " << name << " " << method;
            }
}

TEST_F(SearchOnHost, EveryFilter_EveryMode_IsAStatementThatTheDatabaseTakes) {
    for (const SearchContext& context : EveryMode) {
        EXPECT_EQ(Find(context, {}), "1234567") << context.tableName;
        const std::vector<const char*> listings{show::AllListings, show::MyListings, show::OfficeListings,
                                                show::CompanyListings};
        const std::vector<const char*> agents{show::All, show::OfficeAgents};
        for (const char* entry : context.mode == SearchMode::Agent ? agents : listings)
            EXPECT_NO_THROW(
                Find(context, {"x", match::Beginning, "y", match::Beginning, "N", 1, 9, 2001, entry}))
                << context.tableName << " " << entry;
    }
    EXPECT_TRUE(host::Query(database, PropertyQuery::CompanyOffices("none", quote))->Eof());
}

}  // namespace
}  // namespace lumarin
