#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "lookup/SearchContext.h"
#include "lookup/clsSQLQuote.h"

namespace lumarin {

/// The entries of the search window's "Show:" filter. The chosen text says which clause is added.
namespace show {
inline constexpr const char* AllListings = "All listings";
inline constexpr const char* MyListings = "My listings";
inline constexpr const char* OfficeListings = "Listings from my office";
inline constexpr const char* CompanyListings = "Listings from my company";
inline constexpr const char* All = "All";
inline constexpr const char* OfficeAgents = "Agents from my office";
}  // namespace show

/// How a typed text is compared; the same numbers as the option buttons of the window.
namespace match {
inline constexpr int Beginning = 0, Anywhere = 1, Exact = 2, End = 3;
}

/// What the user asks for. What the mode cannot be narrowed by is ignored.
struct PropertyCriteria {
    std::string ownerName{};
    int ownerMatch = match::Beginning;
    std::string streetName{};
    int streetMatch = match::Beginning;
    std::string streetDirection{};
    std::int32_t addressMin = 0, addressMax = 0;  ///< both 0: any; the smaller one counts as the lower
    std::optional<std::int32_t> status{};         ///< nothing: all statuses
    std::string listingOwner{};                   ///< one of `show`
};

/// Whom "my" means.
struct SearchUser {
    std::string agentId;
    std::string officeId;
    std::string boardId;                      ///< the board that "all" is narrowed to; "" for no narrowing
    std::vector<std::string> companyOffices;  ///< offices of the user's company, for `show::CompanyListings`
};

/// Composes the statements of a search, as text and nothing else. The quoting helper must outlive it.
class PropertyQuery {
public:
    PropertyQuery(SearchContext context, const clsSQLQuote& quote)
        : context_(std::move(context)), quote_(quote) {}

    /// The SELECT of the search. Every row has the key as `SelectedId`. `allowedStatuses` is the IN list
    /// that a search for listings is narrowed to; "" leaves it open.
    std::string Statement(const PropertyCriteria& criteria, const SearchUser& user,
                          const std::string& allowedStatuses) const;

    /// The comparison for a typed text; "" for a method that there is not.
    std::string Fragment(int method, const std::string& text) const;

    /// The SELECT that finds the offices of an office's company, one `OffOfficeId` per row.
    static std::string CompanyOffices(const std::string& officeId, const clsSQLQuote& quote);

private:
    std::string Conditions(const PropertyCriteria& criteria, const SearchUser& user) const;
    std::string NameClause(const PropertyCriteria& criteria) const;
    std::string StreetClause(const PropertyCriteria& criteria) const;
    std::string ListingOwnerClause(const std::string& listingOwner, const SearchUser& user) const;

    SearchContext context_;
    const clsSQLQuote& quote_;
};

}  // namespace lumarin
