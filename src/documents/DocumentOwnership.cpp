#include "documents/DocumentOwnership.h"

#include <cmath>
#include <limits>

#include "base/NumericText.h"
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
    const auto value = NumericValue(typed);
    constexpr double Largest = std::numeric_limits<std::int32_t>::max();
    if (!value || *value < 1 || *value > Largest || *value != std::floor(*value)) return std::nullopt;
    return static_cast<std::int32_t>(*value);
}

bool MayChangeDocuments(const VelCommon& host, const Recordset& listing) {
    return IsInScope(host, listing, ManagesOffice);
}

std::string ListingAddress(const Recordset& listing) {
    const std::string number =
        listing.Field("StreetNumber").Text() + " " + listing.Field("StreetDirection").Text();
    return std::string(text::Trim(number)) + " " + listing.Field("StreetName").Text();
}

}  // namespace lumarin
