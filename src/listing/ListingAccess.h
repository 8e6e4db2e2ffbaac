#pragma once

#include <string>

#include "entry/Services.h"
#include "entry/VelCommon.h"

namespace lumarin {

/// Whether the signed-in user may open the listing of the current row (columns BoardId, ListOfficeId,
/// ListAgentId): an unrestricted user any, a board's user those of that board, an office's user those of the
/// own office and of the offices the user works for, an agent the own ones.
bool MayOpenListing(const VelCommon& host, const Recordset& listing);

}  // namespace lumarin
