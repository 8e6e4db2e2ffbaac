#pragma once

#include <string>

#include "host/database/Database.h"

namespace host {

/// Gives some listings of the demo data documents, files and links, unless that was done before. `dataFolder`
/// ends in a separator. Throws lumarin::Error; what was interrupted is completed by the next call.
void SeedDocuments(Database& database, const std::string& dataFolder);

}  // namespace host
