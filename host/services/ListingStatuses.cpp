#include "host/services/ListingStatuses.h"

namespace host {

const std::vector<lumarin::ListingStatus>& ListingStatusTable() {
    static const std::vector<lumarin::ListingStatus> table = {
        {2001, "Active"},  {2002, "Pending"},   {2003, "Sold"},  {2004, "Withdrawn"},
        {2005, "Expired"}, {2006, "Cancelled"}, {2007, "Leased"}};
    return table;
}

std::string ListingStatusText(const std::string& code) {
    for (const lumarin::ListingStatus& status : ListingStatusTable())
        if (std::to_string(status.code) == code) return status.text;
    return code;
}

}  // namespace host
