#include "listing/ListingAccess.h"

namespace lumarin {

namespace {
constexpr int UnrestrictedLevel = 100;
constexpr int BoardLevel = 90;
constexpr int OfficeLevel = 60;
}  // namespace

bool MayOpenListing(const VelCommon& host, const Recordset& listing) {
    const int level = host.UserLevel();
    if (level >= UnrestrictedLevel) return true;
    if (level >= BoardLevel) return listing.Field("BoardID").Text() == host.UserBoardId();
    if (level >= OfficeLevel) {
        const std::string office = listing.Field("ListOfficeId").Text();
        if (office == host.OfficeId()) return true;
        return host.HasSeveralOffices() &&
               host.ManagedOffices().find("," + office + ",") != std::string::npos;
    }
    return listing.Field("ListAgentId").Text() == host.AgentId();
}

}  // namespace lumarin
