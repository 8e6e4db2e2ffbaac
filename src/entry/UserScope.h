#pragma once

namespace lumarin {

/// Whose listings a user works with, from the narrowest to the widest.
enum class UserScope { Agent, Office, Board, Unrestricted };

/// What a user level stands for: below 60 agent, 60 to 89 office, 90 to 99 board, 100 and over unrestricted.
constexpr UserScope ScopeOf(int userLevel) {
    if (userLevel >= 100) return UserScope::Unrestricted;
    if (userLevel >= 90) return UserScope::Board;
    return userLevel >= 60 ? UserScope::Office : UserScope::Agent;
}

}  // namespace lumarin
