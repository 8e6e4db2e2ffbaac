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
    return IsInScope(host, listing, IsOfOffice);
}

}  // namespace lumarin
