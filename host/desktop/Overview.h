#pragma once

#include <string>
#include <vector>

#include "host/database/Database.h"
#include "host/services/HostVelCommon.h"

namespace host {

/// One listing of the start page.
struct OverviewLine {
    std::string number;
    std::string kind;     ///< "Sale" or "Rental"
    std::string address;  ///< number, direction and name of the street
    std::string agent;
    std::string status;
    int photos = 0;
};

/// What the start page shows of the database: the names behind the user's identifiers ("" when there are
/// none) and the listings that the user may work on, by number.
struct Overview {
    std::string agentName;
    std::string officeName;
    std::vector<OverviewLine> listings;
};

/// Throws lumarin::Error when the database cannot be read.
Overview ReadOverview(Database& database, const HostOptions& user);

/// "agent", "office", "board" or "unrestricted".
std::string LevelName(int level);

}  // namespace host
