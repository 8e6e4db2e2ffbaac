#pragma once

#include <string>
#include <vector>

namespace lumarin {

enum class SearchMode { Listing = 1, TaxRecord = 2, Office = 3, Agent = 4, Rental = 5 };

/// What a search looks for: the caller names the table and the column whose value it wants to have.
struct SearchContext {
    SearchMode mode = SearchMode::Listing;
    std::string tableName;
    std::string keyColumn;
};

/// Listings by their number.
SearchContext ListingSearch();

/// How the search window presents a mode, and what it can be narrowed by.
struct SearchModeTraits {
    std::string caption;
    std::string keyHeading;
    std::string nameLabel;  ///< "" when there is no search by name
    bool byStreet = false;
    bool byStatus = false;
    bool byListingOwner = false;

    bool ByName() const { return !nameLabel.empty(); }
};

const SearchModeTraits& TraitsOf(SearchMode mode);

/// A column of the result list besides the key column, and the field that fills it.
struct ResultColumn {
    std::string heading;
    std::string field;
};

/// The columns in the order in which the result list shows them; a search by address has the address first.
std::vector<ResultColumn> ResultColumns(SearchMode mode, bool addressFirst);

}  // namespace lumarin
