#pragma once

#include "lookup/PropertyQuery.h"

namespace lumarin {

/// A search of each mode, as a host asks for it.
inline const SearchContext Listings = ListingSearch(), TaxRecords{SearchMode::TaxRecord, "Tax", "TaxId"},
                           Offices{SearchMode::Office, "Office", "OffOfficeId"},
                           Agents{SearchMode::Agent, "Member", "MemMemberId"},
                           Rentals{SearchMode::Rental, "Rentals", "ListNum"};
inline const SearchContext EveryMode[] = {Listings, TaxRecords, Offices, Agents, Rentals};

}  // namespace lumarin
