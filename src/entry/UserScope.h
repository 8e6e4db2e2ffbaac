#pragma once

#include <string>

#include "entry/Services.h"
#include "entry/VelCommon.h"

namespace lumarin {

/// Whose listings a user works with, from the narrowest to the widest.
enum class UserScope { Agent, Office, Board, Unrestricted };

/// What a user level stands for: below 60 agent, 60 to 89 office, 90 to 99 board, 100 and over unrestricted.
constexpr UserScope ScopeOf(int userLevel) {
    if (userLevel >= 100) return UserScope::Unrestricted;
    if (userLevel >= 90) return UserScope::Board;
    return userLevel >= 60 ? UserScope::Office : UserScope::Agent;
}

/// Whether the user works for this office.
using OfficeRule = bool (*)(const VelCommon& host, const std::string& office);

/// Whether the listing of the current row (columns BoardID, ListOfficeId, ListAgentId) is one of those that
/// the signed-in user works with.
bool IsInScope(const VelCommon& host, const Recordset& listing, OfficeRule isOfOffice);

}  // namespace lumarin
