#include <gtest/gtest.h>

#include "base/Text.h"
#include "host/database/Schema.h"
#include "host/database/SqliteRecordset.h"
#include "lookup/PropertyQuery.h"
#include "lookup/SearchModes.h"
#include "lookup/clsAllowedStatuses.h"
#include "lookup/clsSQLQuote.h"

namespace lumarin {

class InstalledEngine final : public EngineVersion {
public:
    InstalledEngine(std::uint32_t high, std::uint32_t low)
        : version_{static_cast<std::int32_t>(high), static_cast<std::int32_t>(low)} {}
    std::string SystemFolder() const override { return "C:\\System"; }
    bool FileVersion(const std::string& path, Version& version) const override {
        if (path == "C:\\System\\MsJet40.dll") version = version_;
        return path == "C:\\System\\MsJet40.dll";
    }

private:
    Version version_;
};

TEST(SqlText, Quote_EngineVersion_DashIsTrustedWhenBothDoublewordsReach) {
    EXPECT_FALSE(clsSQLQuote(NoEngineVersion()).JetHandlesDash());
    const std::tuple<std::uint32_t, std::uint32_t, bool> cases[] = {
        {0x00040000, 0x0E820007, true},  {0x00040000, 0x0E820006, false}, {0x0003FFFF, 0x0E820007, false},
        {0x00050000, 0x00010000, false}, {0x00050000, 0x0E820007, true},  {0x00040000, 0x80000000, false},
    };
    for (const auto& [high, low, handlesDash] : cases)
        EXPECT_EQ(clsSQLQuote(InstalledEngine(high, low)).JetHandlesDash(), handlesDash)
            << std::hex << high << " " << low;
    EXPECT_EQ(clsSQLQuote(InstalledEngine(0x00040000, 0x0E820007)).QuoteLike("a-b_"), "a-b[_]");
}

TEST(SqlText, Quote_AwkwardTexts_ComeOutLiteral) {
    const clsSQLQuote quote{NoEngineVersion()};
    EXPECT_EQ(quote.QuoteLiteral("''*?#[]50%_off"), "''''*?#[]50%_off");
    const std::pair<const char*, const char*> cases[] = {
        {"50%_off", "50[%][_]off"},
        {"a-b", "a[-]b"},
        {"*?#[]", "[*][?][#][[]]"},
        // Characters whose low byte is that of "-", "'" and "*", and a pair one half of which has that of
        // "[".
        {"\u042D\u0127\u022A", "[\u042D]\u0127\u0127[\u022A]"},
        {"\U00026C00", "[\xED\xA1\x9B]\xED\xB0\x80"},
        {"\U0001F600", "\U0001F600"},
    };
    for (const auto& [text, like] : cases) EXPECT_EQ(quote.QuoteLike(text), like);
}

TEST(SqlText, AllowedStatuses_Exclusions_LeaveTheOthersInOrder) {
    const clsAllowedStatuses statuses;
    EXPECT_EQ(statuses.SQLAllowedStatuses(""), "'2001','2002','2003','2004','2005','2006','2007'");
    EXPECT_EQ(statuses.SQLAllowedStatuses("12001,2005"), "'2002','2003','2004','2006','2007'");
    EXPECT_EQ(statuses.SQLAllowedStatuses("2001 2002 2003 2004 2005 2006 2007"), "'0000'");
}

PropertyCriteria Name(const std::string& text, int method) {
    return {.ownerName = text, .ownerMatch = method};
}
PropertyCriteria Address(std::int32_t min, std::int32_t max) {
    return {.addressMin = min, .addressMax = max};
}
PropertyCriteria Show(const char* entry) { return {.listingOwner = entry}; }

TEST(SqlText, PropertyQuery_EveryModeAndCriterion_ComposesTheStatementToTheLetter) {
    const std::string member =
        "(MemLastName + ', ' + MemFirstName + ' ' +  IIF(IsNull(MemMiddleInitial),'',MemMiddleInitial))";
    const std::map<SearchMode, std::string> selections = {
        {SearchMode::Listing,
         "ListNum As SelectedId,StreetNumber,StreetDirection,StreetName,OwnerName FROM Listings"},
        {SearchMode::TaxRecord,
         "TaxId As SelectedId,TaxHouseNumber as StreetNumber,TaxStreetDir as StreetDirection,"
         "TaxStreetName as StreetName,TaxOwnerName as OwnerName FROM Tax"},
        {SearchMode::Office, "OffOfficeId As SelectedId,OffName1 AS AgentName FROM Office"},
        {SearchMode::Agent, "MemMemberId As SelectedId," + member + " AS AgentName FROM Member"},
        {SearchMode::Rental, "ListNum As SelectedId,StreetNumber,StreetDirection,StreetName FROM Rentals"}};
    const PropertyCriteria everything{"Lee", match::Exact, "Oak's", match::Anywhere,     "NW",
                                      300,   200,          2003,    show::OfficeListings};
    const SearchUser user{"A1'1", "OF1", "", {"OF1", "OF2"}}, board{"A101", "OF1", "7", {}};
    const struct {
        const SearchContext& context;
        PropertyCriteria criteria;
        const SearchUser& user;
        std::string conditions;
        const char* statuses = "";
    } cases[] = {
        {Listings, Name("O'B", match::Beginning), user, " Where OwnerName Like 'O''B%'"},
        {Listings, Name("5%", match::Anywhere), user, " Where OwnerName Like '%5[%]%'"},
        {Listings, Name("O'Brien_", match::Exact), user, " Where OwnerName = 'O''Brien_'"},
        {Listings, Name("x-y", match::End), user, " Where OwnerName Like '%x[-]y'"},
        {Listings, Address(100, 0), user, " Where AddressNumber Between 0 And 100"},
        {Listings, Address(8, 8), user, " Where AddressNumber = 8"},
        {Listings, Show(show::MyListings), user, " Where ListAgentID = 'A1''1'"},
        {Listings, Show(show::CompanyListings), user,
         " Where (ListOfficeID = 'OF1' Or ListOfficeID = 'OF2')"},
        {Listings, Show(show::CompanyListings), board, ""},  // no offices
        {Listings, Show(show::AllListings), board, " Where BoardId = 7"},
        {Listings, everything, user,
         " Where OwnerName = 'Lee' And StreetName Like '%Oak''s%' And StreetDirection = 'NW' And "
         "AddressNumber Between 200 And 300 And LstStatus = '2003' And ListOfficeID = 'OF1'"},
        {TaxRecords, everything, user,
         " Where TaxOwnerName = 'Lee' And TaxStreetName Like '%Oak''s%' And TaxStreetDir = 'NW' And "
         "TaxAddrNumber Between 200 And 300"},
        {Offices, everything, user, " Where OffName1 = 'Lee' And ListOfficeID = 'OF1'"},
        {Agents, Name("Lee", match::Anywhere), user, " Where " + member + " Like '%Lee%'"},
        {Agents, Show(show::OfficeAgents), user, " Where MemOfficeID = 'OF1'"},
        {Agents, Show(show::All), board, " Where BoardId = 7"},
        {Rentals, everything, user,
         " Where StreetName Like '%Oak''s%' And StreetDirection = 'NW' And AddressNumber Between 200 And 300 "
         "And ListOfficeID = 'OF1'"},
        {Listings, {}, user, " WHERE lstStatus IN ('2001')", "'2001'"},
        {Listings, Address(8, 8), user, " Where (AddressNumber = 8) AND lstStatus IN ('2001')", "'2001'"},
        {Rentals, {}, user, "", "'2001'"},
    };
    const clsSQLQuote quote{NoEngineVersion()};
    for (const auto& [context, criteria, by, conditions, statuses] : cases)
        EXPECT_EQ(PropertyQuery(context, quote).Statement(criteria, by, statuses),
                  "SELECT " + selections.at(context.mode) + conditions + ";");
    EXPECT_EQ(PropertyQuery::CompanyOffices("OF1", quote),
              "Select OffOfficeId From Office Where offCompanyCode = "
              "(Select offCompanyCode From Office Where offOfficeId = 'OF1');");
}

TEST(SqlText, PropertyQuery_AwkwardNamesInAnyCase_AreFoundLiterallyByEveryMethod) {
    host::Database database(":memory:", host::DatabaseUse::Changes);
    host::EnsureSchema(database);
    const clsSQLQuote quote{NoEngineVersion()};
    const char* const names[] = {"O'Brien", "50%_off", "a[b]c", "half-way", "#1 *?", "Plain", "Zoë \u042D"};
    for (const std::string name : names)
        database.Run("INSERT INTO Listings (OwnerName) VALUES ('" + quote.QuoteLiteral(name) + "')");
    for (const std::string name : names)
        for (int method = match::Beginning; method <= match::End; ++method) {
            const PropertyCriteria criteria{.ownerName = text::LowerAscii(name), .ownerMatch = method};
            const auto found =
                host::Query(database, PropertyQuery(Listings, quote).Statement(criteria, {}, ""));
            ASSERT_EQ(found->RecordCount(), 1) << name << " " << method;
            EXPECT_EQ(found->Field("OwnerName").Text(), name) << method;
        }
}

}  // namespace lumarin
