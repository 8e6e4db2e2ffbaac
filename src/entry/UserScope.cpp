#include "entry/UserScope.h"

namespace lumarin {

bool IsInScope(const VelCommon& host, const Recordset& listing, OfficeRule isOfOffice) {
    switch (ScopeOf(host.UserLevel())) {
        case UserScope::Unrestricted:
            return true;
        case UserScope::Board:
            return listing.Field("BoardID").Text() == host.UserBoardId();
        case UserScope::Office:
            return isOfOffice(host, listing.Field("ListOfficeId").Text());
        case UserScope::Agent:
            break;
    }
    return listing.Field("ListAgentId").Text() == host.AgentId();
}

}  // namespace lumarin
