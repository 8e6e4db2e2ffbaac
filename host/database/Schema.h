#pragma once

#include "host/database/Database.h"

#include <string>

namespace host {

/// The database file within the host's data folder (which ends in a separator).
std::string DatabasePath(const std::string& dataFolder);

/// Creates what is missing of the host's tables, and the list of photo descriptions, and brings the tables of
/// an earlier version up to date, in one transaction. Quick when everything is there.
void EnsureSchema(Database& database);

}  // namespace host
