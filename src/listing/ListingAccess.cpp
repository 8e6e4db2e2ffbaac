#include "listing/ListingAccess.h"

#include "entry/UserScope.h"

namespace lumarin {

namespace {

bool IsOfOffice(const VelCommon& host, const std::string& office) {
    if (office == host.OfficeId()) return true;
    return host.HasSeveralOffices() && host.ManagedOffices().find("," + office + ",") != std::string::npos;
}

}  // namespace

bool MayOpenListing(const VelCommon& host, const Recordset& listing) {
    switch (ScopeOf(host.UserLevel())) {
        case UserScope::Unrestricted:
            return true;
        case UserScope::Board:
            return listing.Field("BoardID").Text() == host.UserBoardId();
        case UserScope::Office:
            return IsOfOffice(host, listing.Field("ListOfficeId").Text());
        case UserScope::Agent:
            break;
    }
    return listing.Field("ListAgentId").Text() == host.AgentId();
}

}  // namespace lumarin
