#include "host_services/HostFixture.h"

#include "base/Files.h"
#include "host/demo/SeedData.h"

namespace host {

const std::string& SeededFolder() {
    static const lumarin::testing::TemporaryFolder folder;
    static const std::string path = [] {
        SeedData(folder.Path());
        return folder.Path();
    }();
    return path;
}

namespace {

/// The searches of the component as it writes them, against the demo data.
TEST(Statements, Searches_FindTheirRows) {
    TestHost host({.dataFolder = SeededFolder()});
    const std::string listing =
        "SELECT ListNum As SelectedId,StreetNumber,StreetDirection,StreetName,OwnerName FROM Listings";
    const std::string tax =
        "SELECT TaxId As SelectedId,TaxHouseNumber as StreetNumber,TaxStreetDir as StreetDirection,"
        "TaxStreetName as StreetName,TaxOwnerName as OwnerName FROM Tax";
    const std::string agentName =
        "(MemLastName + ', ' + MemFirstName + ' ' +  IIF(IsNull(MemMiddleInitial),'',MemMiddleInitial))";
    const std::string agent = "SELECT MemMemberId As SelectedId," + agentName + " AS AgentName FROM Member";
    const std::string office = "SELECT OffOfficeId As SelectedId,OffName1 AS AgentName FROM Office";
    const std::string rental =
        "SELECT ListNum As SelectedId,StreetNumber,StreetDirection,StreetName FROM Rentals";
    const struct {
        const char* name;
        std::string sql;
        const char* keys;
    } cases[] = {
        {"exact owner in other case",
         listing + " Where OwnerName = 'patrick o''brien' And ListAgentID = 'a101';", "100123"},
        {"percent and underscore as typed", listing + " Where OwnerName Like '50[%][_]off%';", "100128"},
        {"dash in brackets", listing + " Where OwnerName Like 'a[-]b%';", "100131"},
        {"accents", listing + " Where OwnerName Like '%CÔTÉ';", "100130"},
        {"street, direction and range",
         listing +
             " Where (StreetName Like 'Oak%' And StreetDirection = 'N' And AddressNumber Between 0 And 1420)"
             " AND lstStatus IN ('2001','2002');",
         "100123 100137"},
        {"one address", listing + " Where AddressNumber = 88;", "100124"},
        {"status and office",
         listing + " Where (LstStatus = '2003' And ListOfficeID = 'OF1') AND lstStatus IN ('2001','2003');",
         "100127"},
        {"status alone", listing + " WHERE lstStatus IN ('0000');", ""},
        {"board", listing + " Where StreetName Like '%Hill' And BoardId = 2;", "200301"},
        {"company's offices",
         listing + " Where AddressNumber = 33 And (ListOfficeID = 'OF1' Or ListOfficeID = 'OF3');", "100131"},
        {"tax",
         tax +
             " Where TaxOwnerName Like '%Brien' And TaxStreetDir = 'N' And TaxAddrNumber Between 1 And 5000;",
         "T0100123 T0900001"},
        {"office", office + " Where OffName1 Like '%& vale%';", "OF2 OF4"},
        {"offices by the listings' columns", office + " Where ListOfficeID = 'OF3' And BoardId = 2;", "OF3"},
        {"agent by the joined name", agent + " Where " + agentName + " = 'Whitcomb, Laura J';", "A101"},
        {"agent without a middle initial",
         agent + " Where " + agentName + " Like 'o''brien, s%' And MemOfficeID = 'OF1';", "A102"},
        {"rental", rental + " Where StreetName Like '%Street' And ListOfficeID = 'OF1';", "500012 500013"},
    };
    for (const auto& row : cases) EXPECT_EQ(host.Keys(row.sql, "SelectedId"), row.keys) << row.name;
    EXPECT_EQ(host.Keys("Select OffOfficeId From Office Where offCompanyCode = "
                        "(Select offCompanyCode From Office Where offOfficeId = 'OF2');",
                        "OffOfficeId"),
              "OF2 OF4");
    EXPECT_EQ(host.Keys(agent + " Where MemLastName = 'Whitcomb';", "AgentName"), "Whitcomb, Laura J");
}

TEST(Statements, ListingAndPhotoQueries_GiveWhatTheDemoPublished) {
    TestHost host({.dataFolder = SeededFolder()});
    const auto listing = [&](const std::string& table, const std::string& number) {
        return host.Execute(
            "SELECT ListNum,PhotoCount,PhotoVersion,PhotoDesc,StreetNumber,StreetName,StreetDirection,"
            "ListOfficeId,ListAgentId,RevisionNumber,BoardId From " +
            table + " Left join photo on " + table + ".ListNum = Photo.PhoListNum WHERE " + table +
            ".ListNum = " + number + ";");
    };
    const auto sale = listing("Listings", "100123"), rental = listing("Rentals", "500010");
    EXPECT_EQ(sale->Field("PhotoDesc").Text(), "3,2110,2111,2115");
    EXPECT_EQ(sale->Field("ListAgentId").Text() + sale->Field("ListOfficeId").Text() +
                  sale->Field("BoardID").Text(),
              "A101OF11");
    EXPECT_TRUE(listing("Listings", "100124")->Field("PhotoVersion").IsNull());
    EXPECT_EQ(rental->Field("PhotoCount").Integer(), 2);

    const auto versions =
        host.Execute("SELECT PhoListNum,PhotoVersion FROM Photo WHERE PhoListNum IN (100123,100124,500010);");
    EXPECT_EQ(versions->RecordCount(), 2);
    versions->Find("PhoListNum = 500010");
    EXPECT_EQ(versions->Field("PhotoVersion").Text(), rental->Field("PhotoVersion").Text());
    const auto all = host.Execute(
        "SELECT ListNum,PhotoCount,PhotoVersion From Listings Left join photo on Listings.ListNum = "
        "Photo.PhoListNum WHERE Photo.PhotoCount > 0;");
    EXPECT_GT(all->RecordCount(), 20);
    const std::string documents =
        "SELECT DocID,DocDesc,DocUrl,DocFilesize FROM Documents WHERE DocListNum = 100123 ORDER BY DocID;";
    EXPECT_EQ(host.Keys(documents, "DocDesc"), "Floor plan Schools nearby Seller's disclosure");
    const auto document = host.Execute(documents);
    EXPECT_EQ(document->Field("DocUrl").Text(), "");
    EXPECT_EQ(static_cast<std::uint64_t>(document->Field("DocFilesize").Integer()),
              lumarin::files::FileLength(
                  host.common.ListingServer().DocumentFile(100123, document->Field("DocID").Integer())));
}

}  // namespace
}  // namespace host
