#include "host/desktop/Overview.h"

#include "host/services/ListingStatuses.h"

namespace host {

namespace {

constexpr int OfficeLevel = 60;
constexpr int BoardLevel = 90;
constexpr int UnrestrictedLevel = 100;

/// The condition on listings for this level; its one parameter is what `ScopeValue` gives.
const char* ScopeCondition(int level) {
    if (level >= UnrestrictedLevel) return "?1 = ''";
    if (level >= BoardLevel) return "BoardId = ?1";
    if (level >= OfficeLevel) return "ListOfficeId = ?1";
    return "ListAgentId = ?1";
}

std::string ScopeValue(const HostOptions& user) {
    if (user.level >= UnrestrictedLevel) return "";
    if (user.level >= BoardLevel) return user.board;
    return user.level >= OfficeLevel ? user.office : user.agent;
}

std::string ListingQuery(const std::string& table, const std::string& kind, const std::string& condition) {
    return "SELECT ListNum, '" + kind +
           "', trim(ifnull(StreetNumber, '') || ' ' || ifnull(StreetDirection, '')) || ' ' || "
           "ifnull(StreetName, ''), "
           "ListAgentId, LstStatus, ifnull(PhotoCount, 0) FROM " +
           table + " LEFT JOIN Photo ON PhoListNum = ListNum WHERE " + condition;
}

std::string NameOf(Database& database, const char* query, const std::string& id) {
    Statement statement(database, query);
    statement.Bind(1, id);
    return statement.Step() ? statement.Text(0) : std::string();
}

}  // namespace

Overview ReadOverview(Database& database, const HostOptions& user) {
    Overview overview;
    overview.agentName =
        NameOf(database, "SELECT trim(MemFirstName || ' ' || MemLastName) FROM Member WHERE MemMemberId = ?1",
               user.agent);
    overview.officeName = NameOf(database, "SELECT OffName1 FROM Office WHERE OffOfficeId = ?1", user.office);

    const std::string condition = ScopeCondition(user.level);
    Statement statement(database, ListingQuery("Listings", "Sale", condition) + " UNION ALL " +
                                      ListingQuery("Rentals", "Rental", condition) + " ORDER BY 1");
    statement.Bind(1, ScopeValue(user));
    while (statement.Step())
        overview.listings.push_back({statement.Text(0), statement.Text(1), statement.Text(2),
                                     statement.Text(3), ListingStatusText(statement.Text(4)),
                                     static_cast<int>(statement.Integer(5))});
    return overview;
}

std::string LevelName(int level) {
    if (level >= UnrestrictedLevel) return "unrestricted";
    if (level >= BoardLevel) return "board";
    return level >= OfficeLevel ? "office" : "agent";
}

}  // namespace host
