#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "entry/Services.h"
#include "entry/VelCommon.h"

namespace lumarin {

/// The listing number that was typed, in any form of a number ("100,123", "1e5"); nothing when no listing can
/// have it.
std::optional<std::int32_t> TypedListingNumber(const std::string& typed);

/// Whether the user may change the documents of the listing in the current row (columns ListAgentId,
/// ListOfficeId, BoardId).
bool MayChangeDocuments(const VelCommon& host, const Recordset& listing);

/// The listing's address in one line.
std::string ListingAddress(const Recordset& listing);

}  // namespace lumarin
