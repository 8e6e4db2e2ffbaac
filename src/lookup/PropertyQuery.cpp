#include "lookup/PropertyQuery.h"

#include <algorithm>
#include <string_view>

namespace lumarin {

namespace {

constexpr std::string_view And = " And ";
constexpr std::string_view Or = " Or ";

// The two blanks before IIF are part of the statement that the database knows.
constexpr const char* AgentName =
    "(MemLastName + ', ' + MemFirstName + ' ' +  IIF(IsNull(MemMiddleInitial),'',MemMiddleInitial))";

/// The columns that a mode's table has under names of its own.
struct ColumnNames {
    const char* owner;
    const char* streetName;
    const char* streetDirection;
    const char* addressNumber;
};

ColumnNames ColumnsOf(SearchMode mode) {
    switch (mode) {
        case SearchMode::TaxRecord:
            return {"TaxOwnerName", "TaxStreetName", "TaxStreetDir", "TaxAddrNumber"};
        case SearchMode::Office:
            return {"OffName1", "", "", ""};
        case SearchMode::Agent:
            return {AgentName, "", "", ""};
        default:
            return {"OwnerName", "StreetName", "StreetDirection", "AddressNumber"};
    }
}

std::string SelectList(SearchMode mode) {
    switch (mode) {
        case SearchMode::Listing:
            return " As SelectedId,StreetNumber,StreetDirection,StreetName,OwnerName FROM ";
        case SearchMode::TaxRecord:
            return " As SelectedId,TaxHouseNumber as StreetNumber,TaxStreetDir as StreetDirection,"
                   "TaxStreetName as StreetName,TaxOwnerName as OwnerName FROM ";
        case SearchMode::Office:
            return " As SelectedId,OffName1 AS AgentName FROM ";
        case SearchMode::Agent:
            return std::string(" As SelectedId,") + AgentName + " AS AgentName FROM ";
        case SearchMode::Rental:
            return " As SelectedId,StreetNumber,StreetDirection,StreetName FROM ";
    }
    return {};
}

}  // namespace

std::string PropertyQuery::Fragment(int method, const std::string& text) const {
    switch (method) {
        case match::Beginning:
            return "Like '" + quote_.QuoteLike(text) + "%'";
        case match::Anywhere:
            return "Like '%" + quote_.QuoteLike(text) + "%'";
        case match::Exact:
            return "= '" + quote_.QuoteLiteral(text) + "'";
        case match::End:
            return "Like '%" + quote_.QuoteLike(text) + "'";
        default:
            return {};
    }
}

std::string PropertyQuery::NameClause(const PropertyCriteria& criteria) const {
    if (criteria.ownerName.empty()) return {};
    return std::string(ColumnsOf(context_.mode).owner) + " " +
           Fragment(criteria.ownerMatch, criteria.ownerName) + std::string(And);
}

std::string PropertyQuery::StreetClause(const PropertyCriteria& criteria) const {
    const ColumnNames columns = ColumnsOf(context_.mode);
    std::string clause;
    const auto add = [&](const char* column, const std::string& condition) {
        clause.append(column).append(" ").append(condition).append(And);
    };
    if (!criteria.streetName.empty())
        add(columns.streetName, Fragment(criteria.streetMatch, criteria.streetName));
    if (!criteria.streetDirection.empty())
        add(columns.streetDirection, Fragment(match::Exact, criteria.streetDirection));

    // With one box filled the search deliberately goes from 0 up to it.
    const auto [low, high] = std::minmax(criteria.addressMin, criteria.addressMax);
    if (low == 0 && high == 0) return clause;
    if (low == high)
        add(columns.addressNumber, "= " + std::to_string(low));
    else
        add(columns.addressNumber,
            "Between " + std::to_string(low) + std::string(And) + std::to_string(high));
    return clause;
}

std::string PropertyQuery::ListingOwnerClause(const std::string& listingOwner, const SearchUser& user) const {
    const auto equals = [&](const char* column, const std::string& id) {
        return std::string(column) + " = '" + quote_.QuoteLiteral(id) + "'";
    };
    if (listingOwner == show::AllListings || listingOwner == show::All)
        return user.boardId.empty() ? "" : "BoardId = " + user.boardId + std::string(And);
    if (listingOwner == show::MyListings) return equals("ListAgentID", user.agentId) + std::string(And);
    if (listingOwner == show::OfficeListings) return equals("ListOfficeID", user.officeId) + std::string(And);
    if (listingOwner == show::OfficeAgents) return equals("MemOfficeID", user.officeId) + std::string(And);
    if (listingOwner != show::CompanyListings || user.companyOffices.empty()) return {};

    std::string offices = "(";
    for (const std::string& office : user.companyOffices)
        offices += equals("ListOfficeID", office) + std::string(Or);
    offices.resize(offices.size() - Or.size());
    return offices + ")" + std::string(And);
}

std::string PropertyQuery::Conditions(const PropertyCriteria& criteria, const SearchUser& user) const {
    const SearchModeTraits& traits = TraitsOf(context_.mode);
    std::string conditions;
    if (traits.ByName()) conditions += NameClause(criteria);
    if (traits.byStreet) conditions += StreetClause(criteria);
    if (traits.byStatus && criteria.status)
        conditions += "LstStatus = '" + std::to_string(*criteria.status) + "'" + std::string(And);
    if (traits.byListingOwner) conditions += ListingOwnerClause(criteria.listingOwner, user);
    if (!conditions.empty()) conditions.resize(conditions.size() - And.size());
    return conditions;
}

std::string PropertyQuery::Statement(const PropertyCriteria& criteria, const SearchUser& user,
                                     const std::string& allowedStatuses) const {
    const bool narrowed = context_.mode == SearchMode::Listing && !allowedStatuses.empty();
    const std::string conditions = Conditions(criteria, user);
    std::string where;
    if (narrowed && conditions.empty())
        where = " WHERE lstStatus IN (" + allowedStatuses + ")";
    else if (narrowed)
        where = " Where (" + conditions + ") AND lstStatus IN (" + allowedStatuses + ")";
    else if (!conditions.empty())
        where = " Where " + conditions;
    return "SELECT " + context_.keyColumn + SelectList(context_.mode) + context_.tableName + where + ";";
}

std::string PropertyQuery::CompanyOffices(const std::string& officeId, const clsSQLQuote& quote) {
    return "Select OffOfficeId From Office Where offCompanyCode = "
           "(Select offCompanyCode From Office Where offOfficeId = '" +
           quote.QuoteLiteral(officeId) + "');";
}

}  // namespace lumarin
