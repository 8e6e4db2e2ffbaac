#include "documents/DocumentOwnership.h"

#include "base/Numbers.h"
#include "base/Text.h"

namespace lumarin {

namespace {
constexpr int UnrestrictedLevel = 100;
constexpr int BoardLevel = 90;
constexpr int OfficeLevel = 60;
}  // namespace

std::optional<std::int32_t> TypedListingNumber(const std::string& typed) {
    std::string digits = text::ReplaceAll(std::string(text::Trim(typed)), ",", "");
    digits.erase(0, digits.find_first_not_of('0'));
    return ParseListingNumber(digits);
}

bool MayChangeDocuments(const VelCommon& host, const Recordset& listing) {
    const int level = host.UserLevel();
    if (level >= UnrestrictedLevel) return true;
    if (level >= BoardLevel) return listing.Field("BoardID").Text() == host.UserBoardId();
    if (level < OfficeLevel) return listing.Field("ListAgentId").Text() == host.AgentId();
    const std::string office = listing.Field("ListOfficeId").Text();
    const std::string managed = host.ManagedOffices();
    // Where offices are managed they count alone; the user's own is among them if it is to count.
    if (managed.empty()) return office == host.OfficeId();
    return managed.find("'" + office + "'") != std::string::npos;
}

std::string ListingAddress(const Recordset& listing) {
    const std::string number =
        listing.Field("StreetNumber").Text() + " " + listing.Field("StreetDirection").Text();
    return std::string(text::Trim(number)) + " " + listing.Field("StreetName").Text();
}

}  // namespace lumarin
