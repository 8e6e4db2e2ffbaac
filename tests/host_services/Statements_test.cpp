#include "host_services/HostFixture.h"

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

/// What the component asks, as it writes it, against the demo data.
TEST(Statements, SearchesAndLists_FindTheirRows) {
    TestHost host({.dataFolder = SeededFolder()});
    const std::string listing = "SELECT ListNum As SelectedId,StreetNumber,OwnerName FROM Listings Where ";
    const struct {
        const char* name;
        std::string sql;
        const char* keys;
    } cases[] = {
        {"exact owner in other case", listing + "OwnerName = 'patrick o''brien' And ListAgentID = 'a101';",
         "100123"},
        {"street, direction and range",
         listing +
             "(StreetName Like 'Oak%' And StreetDirection = 'N' And AddressNumber Between 0 And 1420) AND "
             "lstStatus IN ('2001','2002');",
         "100123 100137"},
        {"tax",
         "SELECT TaxId As SelectedId,TaxOwnerName as OwnerName FROM Tax Where TaxOwnerName Like '%Brien' And "
         "TaxStreetDir = 'N' And TaxAddrNumber Between 1 And 5000;",
         "T0100123 T0900001"},
        {"offices by the listings' columns",
         "SELECT OffOfficeId As SelectedId FROM Office Where ListOfficeID = 'OF3' And BoardId = 2;", "OF3"},
        {"a rental's photos",
         "SELECT PhotoCount As SelectedId From Rentals Left join photo on Rentals.ListNum = Photo.PhoListNum "
         "WHERE Rentals.ListNum = 500010;",
         "2"},
        {"documents", "SELECT DocDesc As SelectedId FROM Documents WHERE DocListNum = 100123 ORDER BY DocID;",
         "Floor plan Schools nearby Seller's disclosure"},
    };
    for (const auto& row : cases) EXPECT_EQ(host.Keys(row.sql, "SelectedId"), row.keys) << row.name;
}

}  // namespace
}  // namespace host
