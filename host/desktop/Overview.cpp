#include "host/desktop/Overview.h"

#include "entry/UserScope.h"
#include "host/services/ListingStatuses.h"

namespace host {

namespace {

using lumarin::UserScope;

/// A user's part of the listings: a condition with one parameter, and what that parameter stands for.
struct Share {
    const char* condition;
    std::string value;
};

Share ShareOf(const HostOptions& user) {
    switch (lumarin::ScopeOf(user.level)) {
        case UserScope::Unrestricted:
            return {"?1 = ''", ""};
        case UserScope::Board:
            return {"BoardId = ?1", user.board};
        case UserScope::Office:
            return {"ListOfficeId = ?1", user.office};
        case UserScope::Agent:
            break;
    }
    return {"ListAgentId = ?1", user.agent};
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

    const Share share = ShareOf(user);
    Statement statement(database, ListingQuery("Listings", "Sale", share.condition) + " UNION ALL " +
                                      ListingQuery("Rentals", "Rental", share.condition) + " ORDER BY 1");
    statement.Bind(1, share.value);
    while (statement.Step())
        overview.listings.push_back({statement.Text(0), statement.Text(1), statement.Text(2),
                                     statement.Text(3), ListingStatusText(statement.Text(4)),
                                     static_cast<int>(statement.Integer(5))});
    return overview;
}

std::string LevelName(int level) {
    switch (lumarin::ScopeOf(level)) {
        case UserScope::Unrestricted:
            return "unrestricted";
        case UserScope::Board:
            return "board";
        case UserScope::Office:
            return "office";
        case UserScope::Agent:
            break;
    }
    return "agent";
}

}  // namespace host
