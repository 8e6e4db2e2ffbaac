#include "lookup/SearchContext.h"

#include <algorithm>

namespace lumarin {

SearchContext ListingSearch() { return {SearchMode::Listing, "Listings", "ListNum"}; }

const SearchModeTraits& TraitsOf(SearchMode mode) {
    static const SearchModeTraits Listing{"Find Property", "List #", "Owner Name:", true, true, true};
    static const SearchModeTraits TaxRecord{"Find Property", "Tax Id", "Owner Name:", true, false, false};
    static const SearchModeTraits Office{"Find Office", "Office Code", "Office Name", false, false, true};
    static const SearchModeTraits Agent{"Find Agent", "Agent Code", "Agent Name", false, false, true};
    static const SearchModeTraits Rental{"Find Rental", "Rental #", "", true, false, true};
    switch (mode) {
        case SearchMode::TaxRecord:
            return TaxRecord;
        case SearchMode::Office:
            return Office;
        case SearchMode::Agent:
            return Agent;
        case SearchMode::Rental:
            return Rental;
        case SearchMode::Listing:
            break;
    }
    return Listing;
}

std::vector<ResultColumn> ResultColumns(SearchMode mode, bool addressFirst) {
    if (mode == SearchMode::Office || mode == SearchMode::Agent) return {{"Name", "AgentName"}};
    std::vector<ResultColumn> columns = {
        {"Number", "StreetNumber"}, {" ", "StreetDirection"}, {"Street Name", "StreetName"}};
    if (mode != SearchMode::Rental)
        columns.insert(addressFirst ? columns.end() : columns.begin(), {"Owner", "OwnerName"});
    return columns;
}

}  // namespace lumarin
