#include <gtest/gtest.h>

#include "lookup/PropertyQuery.h"
#include "lookup/clsAllowedStatuses.h"
#include "lookup/clsSQLQuote.h"

namespace lumarin {
namespace {

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
    const struct {
        std::uint32_t high, low;
        bool handlesDash;
    } cases[] = {
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
    const struct {
        const char *text, *literal, *like;
    } cases[] = {
        {"", "", ""},
        {"O'Brien", "O''Brien", "O''Brien"},
        {"50%_off", "50%_off", "50[%][_]off"},
        {"a-b", "a-b", "a[-]b"},
        {"*?#[]", "*?#[]", "[*][?][#][[]]"},
        // Characters whose low byte is that of "-", "'" and "*", and a pair of which one half has that of
        // "[".
        {"\u042D\u0127\u022A", "\u042D\u0127\u022A", "[\u042D]\u0127\u0127[\u022A]"},
        {"\U00026C00", "\U00026C00", "[\xED\xA1\x9B]\xED\xB0\x80"},
        {"\U0001F600", "\U0001F600", "\U0001F600"},
    };
    for (const auto& [text, literal, like] : cases) {
        EXPECT_EQ(quote.QuoteLiteral(text), literal);
        EXPECT_EQ(quote.QuoteLike(text), like);
    }
}

TEST(SqlText, AllowedStatuses_Exclusions_LeaveTheOthersInOrder) {
    const clsAllowedStatuses statuses;
    EXPECT_EQ(statuses.SQLAllowedStatuses(""), "'2001','2002','2003','2004','2005','2006','2007'");
    EXPECT_EQ(statuses.SQLAllowedStatuses("2002,2005"), "'2001','2003','2004','2006','2007'");
    EXPECT_EQ(statuses.SQLAllowedStatuses("12001"), "'2002','2003','2004','2005','2006','2007'");
    EXPECT_EQ(statuses.SQLAllowedStatuses("2001 2002 2003 2004 2005 2006 2007"), "'0000'");
}

const SearchContext Listings = ListingSearch();
const SearchContext Tax{SearchMode::TaxRecord, "Tax", "TaxId"};
const SearchContext Offices{SearchMode::Office, "Office", "OffOfficeId"};
const SearchContext Agents{SearchMode::Agent, "Members", "MemAgentId"};
const SearchContext Rentals{SearchMode::Rental, "Rentals", "ListNum"};

PropertyCriteria Name(const std::string& text, int method) {
    return {.ownerName = text, .ownerMatch = method};
}
PropertyCriteria Address(std::int32_t min, std::int32_t max) {
    return {.addressMin = min, .addressMax = max};
}
PropertyCriteria Show(const char* entry) { return {.listingOwner = entry}; }
const PropertyCriteria Everything{"Lee", match::Exact, "Oak's", match::Anywhere,     "NW",
                                  300,   200,          2003,    show::OfficeListings};

TEST(SqlText, PropertyQuery_EveryModeAndCriterion_ComposesTheStatementToTheLetter) {
    const std::string listing =
        "SELECT ListNum As SelectedId,StreetNumber,StreetDirection,StreetName,OwnerName FROM Listings";
    const std::string tax =
        "SELECT TaxId As SelectedId,TaxHouseNumber as StreetNumber,TaxStreetDir as StreetDirection,"
        "TaxStreetName as StreetName,TaxOwnerName as OwnerName FROM Tax";
    const std::string office = "SELECT OffOfficeId As SelectedId,OffName1 AS AgentName FROM Office";
    const std::string member =
        "(MemLastName + ', ' + MemFirstName + ' ' +  IIF(IsNull(MemMiddleInitial),'',MemMiddleInitial))";
    const std::string agent = "SELECT MemAgentId As SelectedId," + member + " AS AgentName FROM Members";
    const std::string rental =
        "SELECT ListNum As SelectedId,StreetNumber,StreetDirection,StreetName FROM Rentals";
    const SearchUser user{"A1'1", "OF1", "", {"OF1", "OF2"}};
    const SearchUser board{"A101", "OF1", "7", {}};
    const struct {
        const char* name;
        SearchContext context;
        PropertyCriteria criteria;
        SearchUser user;
        std::string statement;
    } cases[] = {
        {"nothing", Listings, {}, user, listing + ";"},
        {"beginning", Listings, Name("O'B", match::Beginning), user,
         listing + " Where OwnerName Like 'O''B%';"},
        {"anywhere", Listings, Name("5%", match::Anywhere), user,
         listing + " Where OwnerName Like '%5[%]%';"},
        {"exact", Listings, Name("O'Brien_", match::Exact), user,
         listing + " Where OwnerName = 'O''Brien_';"},
        {"end", Listings, Name("x-y", match::End), user, listing + " Where OwnerName Like '%x[-]y';"},
        {"no such method", Listings, Name("x", 4), user, listing + " Where OwnerName ;"},
        {"lower number only", Listings, Address(100, 0), user,
         listing + " Where AddressNumber Between 0 And 100;"},
        {"one number", Listings, Address(8, 8), user, listing + " Where AddressNumber = 8;"},
        {"largest numbers", Listings, Address(2147483647, 1), user,
         listing + " Where AddressNumber Between 1 And 2147483647;"},
        {"mine", Listings, Show(show::MyListings), user, listing + " Where ListAgentID = 'A1''1';"},
        {"company", Listings, Show(show::CompanyListings), user,
         listing + " Where (ListOfficeID = 'OF1' Or ListOfficeID = 'OF2');"},
        {"company without offices", Listings, Show(show::CompanyListings), board, listing + ";"},
        {"all", Listings, Show(show::AllListings), user, listing + ";"},
        {"all of a board", Listings, Show(show::AllListings), board, listing + " Where BoardId = 7;"},
        {"everything", Listings, Everything, user,
         listing + " Where OwnerName = 'Lee' And StreetName Like '%Oak''s%' And "
                   "StreetDirection = 'NW' And AddressNumber Between 200 And 300 And LstStatus = '2003' And "
                   "ListOfficeID = 'OF1';"},
        {"tax", Tax, Everything, user,
         tax + " Where TaxOwnerName = 'Lee' And TaxStreetName Like '%Oak''s%' And "
               "TaxStreetDir = 'NW' And TaxAddrNumber Between 200 And 300;"},
        {"tax, a column's name as text", Tax, Name("OwnerName", match::Exact), user,
         tax + " Where TaxOwnerName = 'OwnerName';"},
        {"office", Offices, Everything, user, office + " Where OffName1 = 'Lee' And ListOfficeID = 'OF1';"},
        {"agent", Agents, Name("Lee", match::Anywhere), user, agent + " Where " + member + " Like '%Lee%';"},
        {"agents of the office", Agents, Show(show::OfficeAgents), user,
         agent + " Where MemOfficeID = 'OF1';"},
        {"agents of a board", Agents, Show(show::All), board, agent + " Where BoardId = 7;"},
        {"rental", Rentals, Everything, user,
         rental + " Where StreetName Like '%Oak''s%' And StreetDirection = 'NW' And "
                  "AddressNumber Between 200 And 300 And ListOfficeID = 'OF1';"},
    };
    const clsSQLQuote quote{NoEngineVersion()};
    for (const auto& test : cases)
        EXPECT_EQ(PropertyQuery(test.context, quote).Statement(test.criteria, test.user, ""), test.statement)
            << test.name;

    const PropertyQuery narrowed(Listings, quote);
    EXPECT_EQ(narrowed.Statement({}, user, "'2001'"), listing + " WHERE lstStatus IN ('2001');");
    EXPECT_EQ(narrowed.Statement(Address(8, 8), user, "'2001'"),
              listing + " Where (AddressNumber = 8) AND lstStatus IN ('2001');");
    EXPECT_EQ(PropertyQuery(Rentals, quote).Statement({}, user, "'2001'"), rental + ";");
    EXPECT_EQ(PropertyQuery::CompanyOffices("OF1", quote),
              "Select OffOfficeId From Office Where offCompanyCode = "
              "(Select offCompanyCode From Office Where offOfficeId = 'OF1');");
}

}  // namespace
}  // namespace lumarin
