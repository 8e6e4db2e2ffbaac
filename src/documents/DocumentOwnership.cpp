#include "documents/DocumentOwnership.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "entry/UserScope.h"

namespace lumarin {

namespace {

/// Where offices are managed they count alone; the user's own is among them if it is to count.
bool ManagesOffice(const VelCommon& host, const std::string& office) {
    const std::string managed = host.ManagedOffices();
    if (managed.empty()) return office == host.OfficeId();
    return managed.find("'" + office + "'") != std::string::npos;
}

}  // namespace

std::optional<std::int32_t> TypedListingNumber(const std::string& typed) {
    std::string digits = text::ReplaceAll(std::string(text::Trim(typed)), ",", "");
    digits.erase(0, digits.find_first_not_of('0'));
    return ParseListingNumber(digits);
}

bool MayChangeDocuments(const VelCommon& host, const Recordset& listing) {
    switch (ScopeOf(host.UserLevel())) {
        case UserScope::Unrestricted:
            return true;
        case UserScope::Board:
            return listing.Field("BoardID").Text() == host.UserBoardId();
        case UserScope::Office:
            return ManagesOffice(host, listing.Field("ListOfficeId").Text());
        case UserScope::Agent:
            break;
    }
    return listing.Field("ListAgentId").Text() == host.AgentId();
}

std::string ListingAddress(const Recordset& listing) {
    const std::string number =
        listing.Field("StreetNumber").Text() + " " + listing.Field("StreetDirection").Text();
    return std::string(text::Trim(number)) + " " + listing.Field("StreetName").Text();
}

}  // namespace lumarin
