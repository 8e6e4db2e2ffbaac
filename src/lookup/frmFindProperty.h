#pragma once

#include <memory>
#include <string>
#include <vector>

#include "entry/JobPorts.h"
#include "entry/QueryRows.h"
#include "forms/Controls.h"
#include "forms/ListView.h"
#include "lookup/EngineVersion.h"
#include "lookup/PropertyQuery.h"

namespace lumarin {

/// Finds records by name or street address and hands the keys of the chosen ones to the caller.
///
/// A search runs its statement at once and then fills the list in portions from a timer, so that the
/// window answers however long the result is: it can be sorted, searched again, confirmed or closed while
/// rows still come.
class frmFindProperty : public Form {
public:
    explicit frmFindProperty(const LookupPorts& ports);

    /// What `FindProperty` does besides showing the window; bits.
    static constexpr int SetUpList = 1;  ///< the result list shows its columns before the first search
    static constexpr int SearchAtOnce = 2;
    /// Entries of "Show:" to start with; any other number is the entry at that place.
    static constexpr int OwnListings = 2;
    static constexpr int ByUserLevel = 5;
    static constexpr int ActiveStatus = 2;  ///< for `statusDefault`; any other number is all statuses

    /// Shows the window modal above `owner`. True when the user confirmed rows; `selectedIds` holds their
    /// keys then, from the top, and is empty otherwise. What fails is reported in the window. The window
    /// stays loaded.
    bool FindProperty(const SearchContext& searchContext, int flags, int defaultOwnerFilter,
                      int statusDefault, std::vector<std::string>& selectedIds,
                      const OwnerWindow* owner = nullptr);

    TabStrip sstTab{*this, "sstTab", {"&Name", "Street &Address"}};
    Label lblOwnerName{
        *this, "lblOwnerName", {"Owner's name:"}};  ///< what is searched for says whose name it is
    TextBox txtOwnerName{*this, "txtOwnerName"};
    Label lblMatchOwner{*this, "lblMatchOwner", {"Match:"}};
    ControlArray<OptionButton, 4> optMatchMethodOwner{
        *this,
        "optMatchMethodOwner",
        {{.caption = "Beginning", .accessibleName = "Name match: Beginning"},
         {.caption = "Anywhere", .accessibleName = "Name match: Anywhere"},
         {.caption = "Exact", .accessibleName = "Name match: Exact"},
         {.caption = "End", .accessibleName = "Name match: End"}}};
    TextBox txtStreetName{*this, "txtStreetName", {"&Street name:"}};
    Label lblMatchStreet{*this, "lblMatchStreet", {"Match:"}};
    ControlArray<OptionButton, 4> optMatchMethodStreet{
        *this,
        "optMatchMethodStreet",
        {{.caption = "Beginning", .accessibleName = "Street match: Beginning"},
         {.caption = "Anywhere", .accessibleName = "Street match: Anywhere"},
         {.caption = "Exact", .accessibleName = "Street match: Exact"},
         {.caption = "End", .accessibleName = "Street match: End"}}};
    ComboBox cmbStreetDirection{*this, "cmbStreetDirection", {"&Direction:"}};
    NumberBox fpAddrMin{*this, "fpAddrMin", {"N&umber from:"}}, fpAddrMax{*this, "fpAddrMax", {"&to:"}};
    Label lblStatus{*this, "lblStatus", {"Filter by status:"}};
    ComboBox cmbStatus{*this, "cmbStatus"};
    Label lblListingOwner{*this, "lblListingOwner", {"Show:"}};
    ComboBox cmbListingOwner{*this, "cmbListingOwner"};
    ComboBox lisIncludestatuses{*this, "lisIncludestatuses"};  ///< never seen: the host's statuses
    Button cmdShowMatches{*this, "cmdShowMatches", {"Show &Matches", "Search with what is entered above"}};
    ListView List{
        *this,
        "List",
        {.toolTip = "Double-click a row to choose it; hold Ctrl or Shift to select several; click a "
                    "heading to sort",
         .accessibleName = "Matches"}};
    Label lblMatches{*this, "lblMatches", {"Matches:"}};
    Label lblMatchCount{*this, "lblMatchCount", {.accessibleName = "Number of matches"}};
    Button cmdOK{*this, "cmdOK", {"&OK"}}, cmdCancel{*this, "cmdCancel", {"&Cancel"}};
    Timer tmrRows{*this, "tmrRows"};

protected:
    void OnLoad() override;
    void OnShow() override;
    void OnUnload() override { StopSearch(); }

private:
    void Prepare(int statusDefault);
    void ShowNotes();
    std::string StreetNote();
    void FillStatuses(int statusDefault);
    void FillListingOwners();
    /// Returns whether a search at once makes sense for this user.
    bool ChooseListingOwner(int defaultOwnerFilter);
    void ChooseListingOwner(const std::string& text);

    void ShowMatches();
    void SetUpColumns();
    void AddPortion();
    std::vector<PackedRow> NextRows(int count);
    void StopSearch();
    PropertyCriteria Criteria();
    SearchUser User() const;

    void SortByColumn(int column);
    void Confirm();
    void Close();

    HostLink& host_;
    clsSQLQuote quote_;
    SearchContext context_;
    std::string boardId_;  ///< the board that "all" is narrowed to
    std::vector<ResultColumn> columns_;
    std::unique_ptr<QueryRows> records_;  ///< rows still to come; null when no search runs
    bool confirmed_ = false;
};

}  // namespace lumarin
