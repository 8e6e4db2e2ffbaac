#pragma once

#include <string>
#include <vector>

#include "entry/VelCommon.h"

namespace host {

/// The states that a listing can be in, as the database names them by their codes.
const std::vector<lumarin::ListingStatus>& ListingStatusTable();

/// The state of this code; the code itself when there is none.
std::string ListingStatusText(const std::string& code);

}  // namespace host
