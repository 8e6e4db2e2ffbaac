#pragma once

#include <string>

#include "entry/Services.h"
#include "entry/VelCommon.h"

namespace lumarin {

/// Whether the signed-on user may open the listing of the current row (columns BoardId, ListOfficeId,
/// ListAgentId): at level 100 any, at 90 those of the own board, at 60 those of the own office or of the
/// offices the user works for, below that the own ones.
bool MayOpenListing(const VelCommon& host, const Recordset& listing);

}  // namespace lumarin
