#include "lookup/frmFindProperty.h"

#include <algorithm>

#include "entry/UserScope.h"
#include "lookup/clsAllowedStatuses.h"

namespace lumarin {

namespace {

constexpr int HelpPage = 4;
constexpr int NameTab = 0;
constexpr int StreetTab = 1;
constexpr double KeyColumnWidth = 600;

// The first rows appear at once, and the window answers between portions. A list that is kept sorted takes
// fewer and larger ones the longer it gets, because each costs a merge.
constexpr int FirstPortion = 1000;
constexpr int LargestPortion = 16'000;
constexpr int LargestSortedPortion = 64'000;

template <class Group>
int Chosen(Group& options) {
    for (int i = 0; i < Group::Size(); ++i)
        if (options(i).Value()) return i;
    return match::Beginning;
}

template <class... Shown>
void SetVisible(bool visible, Shown&... controls) {
    (controls.SetVisible(visible), ...);
}

}  // namespace

frmFindProperty::frmFindProperty(const LookupPorts& ports)
    : Form(ports.desktop, "frmFindProperty"), host_(ports.host), quote_(ports.engine) {
    SetCaption("Find Property");
    SetHelpContext(HelpPage);
    fpAddrMin.SetRange(0, 2147483647);
    fpAddrMax.SetRange(0, 2147483647);
    lisIncludestatuses.SetVisible(false);
    List.SetMultiSelect(true);
    tmrRows.SetInterval(1);

    cmdShowMatches.Click = [this] { RunCommand("ShowMatches", [this] { ShowMatches(); }); };
    cmdOK.Click = [this] { Confirm(); };
    cmdCancel.Click = [this] { Close(); };
    sstTab.Click = [this] { ShowNotes(); };
    List.SelectionChange = [this] { cmdOK.SetEnabled(List.Selected() >= 0); };
    List.ColumnClick = [this](int column) { SortByColumn(column); };
    List.DoubleClick = [this] {
        if (List.Selected() >= 0) Confirm();
    };
    List.KeyPressed = [this](const KeyDown& key, bool& used) {
        if (key.key != Key::Enter || List.Selected() < 0) return;
        used = true;
        Confirm();
    };
    tmrRows.Elapsed = [this] { AddPortion(); };
}

void frmFindProperty::OnLoad() {
    cmbStreetDirection.Clear();
    for (const char* direction : {"", "N", "NE", "E", "SE", "S", "SW", "W", "NW"})
        cmbStreetDirection.AddItem(direction);
}

void frmFindProperty::OnShow() { (sstTab.Tab() == StreetTab ? txtStreetName : txtOwnerName).SetFocus(); }

bool frmFindProperty::FindProperty(const SearchContext& searchContext, int flags, int defaultOwnerFilter,
                                   int statusDefault, std::vector<std::string>& selectedIds,
                                   const OwnerWindow* owner) {
    selectedIds.clear();
    confirmed_ = false;
    context_ = searchContext;
    Guarded("FindProperty", [&] {
        Load();
        Prepare(statusDefault);
        const bool searchAtOnce = ChooseListingOwner(defaultOwnerFilter) && (flags & SearchAtOnce) != 0;
        if ((flags & SetUpList) != 0) SetUpColumns();
        if (searchAtOnce) cmdShowMatches.Press();
        ShowModal(owner);
    });
    StopSearch();
    if (confirmed_)
        for (const int row : List.SelectedRows()) selectedIds.push_back(List.At(row).key);
    return !selectedIds.empty();
}

void frmFindProperty::Prepare(int statusDefault) {
    const SearchModeTraits& traits = TraitsOf(context_.mode);
    SetCaption(traits.caption);
    lblOwnerName.SetCaption(traits.nameLabel);
    SetVisible(traits.ByName(), lblOwnerName, txtOwnerName);
    for (OptionButton& option : optMatchMethodOwner) option.SetVisible(traits.ByName());
    SetVisible(traits.byStreet, txtStreetName, cmbStreetDirection, fpAddrMin, fpAddrMax);
    for (OptionButton& option : optMatchMethodStreet) option.SetVisible(traits.byStreet);
    SetVisible(traits.byStatus, lblStatus, cmbStatus);
    SetVisible(traits.byListingOwner, lblListingOwner, cmbListingOwner);

    const int firstTab = traits.ByName() ? NameTab : StreetTab;
    sstTab.SetTabVisible(firstTab, true);
    sstTab.SetTab(firstTab);
    sstTab.SetTabVisible(NameTab, traits.ByName());
    sstTab.SetTabVisible(StreetTab, traits.byStreet);

    txtOwnerName.SetText("");
    txtStreetName.SetText("");
    optMatchMethodOwner(match::Beginning).Choose();
    optMatchMethodStreet(match::Beginning).Choose();
    cmbStreetDirection.SetListIndex(0);
    fpAddrMin.SetValue(std::nullopt);
    fpAddrMax.SetValue(std::nullopt);
    ShowNotes();
    List.Clear();
    List.ClearColumns();
    cmdOK.SetEnabled(false);
    lblMatchCount.SetCaption("");
    FillStatuses(statusDefault);
    FillListingOwners();
}

/// What stands on the tab behind narrows the search too, so it can be read on the tab.
void frmFindProperty::ShowNotes() {
    const bool nameInFront = sstTab.Tab() == NameTab;
    sstTab.SetTabNote(NameTab, nameInFront ? "" : txtOwnerName.Text());
    sstTab.SetTabNote(StreetTab, nameInFront ? StreetNote() : "");
}

std::string frmFindProperty::StreetNote() {
    const PropertyCriteria criteria = Criteria();
    const auto [low, high] = std::minmax(criteria.addressMin, criteria.addressMax);
    std::string numbers;
    if (high > 0) numbers = std::to_string(high);
    if (high > 0 && low != high) numbers = std::to_string(low) + "-" + numbers;
    std::string note = criteria.streetName;
    for (const std::string& part : {criteria.streetDirection, numbers})
        if (!part.empty()) note += (note.empty() ? "" : " ") + part;
    return note;
}

void frmFindProperty::FillStatuses(int statusDefault) {
    lisIncludestatuses.Clear();
    cmbStatus.Clear();
    if (!TraitsOf(context_.mode).byStatus) return;
    for (const ListingStatus& status : host_.Common().ListingStatuses())
        lisIncludestatuses.AddItem(status.text, status.code);

    cmbStatus.AddItem("All Statuses");
    for (const ComboBox::Item& status : lisIncludestatuses.Items())
        cmbStatus.AddItem(status.text, status.data);
    cmbStatus.SetListIndex(0);
    if (statusDefault != ActiveStatus) return;
    for (int i = 1; i < static_cast<int>(cmbStatus.Items().size()); ++i)
        if (cmbStatus.Items()[static_cast<std::size_t>(i)].text == "Active") return cmbStatus.SetListIndex(i);
}

void frmFindProperty::FillListingOwners() {
    cmbListingOwner.Clear();
    if (context_.mode == SearchMode::Agent) {
        for (const char* entry : {show::All, show::OfficeAgents}) cmbListingOwner.AddItem(entry);
    } else {
        for (const char* entry :
             {show::AllListings, show::MyListings, show::OfficeListings, show::CompanyListings})
            cmbListingOwner.AddItem(entry);
    }
}

bool frmFindProperty::ChooseListingOwner(int defaultOwnerFilter) {
    boardId_.clear();
    if (defaultOwnerFilter == OwnListings) {
        ChooseListingOwner(show::MyListings);
    } else if (defaultOwnerFilter != ByUserLevel) {
        cmbListingOwner.SetListIndex(std::max(defaultOwnerFilter, 0));
    } else {
        const UserScope scope = ScopeOf(host_.Common().UserLevel());
        ChooseListingOwner(scope == UserScope::Agent    ? show::MyListings
                           : scope == UserScope::Office ? show::CompanyListings
                                                        : show::AllListings);
        if (scope == UserScope::Board) boardId_ = host_.Common().UserBoardId();
        return scope < UserScope::Board;  // all listings of a board are too many to be what anybody looks for
    }
    return true;
}

void frmFindProperty::ChooseListingOwner(const std::string& text) {
    const auto& entries = cmbListingOwner.Items();
    const auto found =
        std::find_if(entries.begin(), entries.end(), [&](const auto& entry) { return entry.text == text; });
    cmbListingOwner.SetListIndex(found == entries.end() ? 0 : static_cast<int>(found - entries.begin()));
}

PropertyCriteria frmFindProperty::Criteria() {
    PropertyCriteria criteria;
    criteria.ownerName = txtOwnerName.Text();
    criteria.ownerMatch = Chosen(optMatchMethodOwner);
    criteria.streetName = txtStreetName.Text();
    criteria.streetMatch = Chosen(optMatchMethodStreet);
    criteria.streetDirection = cmbStreetDirection.Text();
    criteria.addressMin = fpAddrMin.Value().value_or(0);
    criteria.addressMax = fpAddrMax.Value().value_or(0);
    if (cmbStatus.ListIndex() >= 1) criteria.status = cmbStatus.ItemData();
    criteria.listingOwner = cmbListingOwner.Text();
    return criteria;
}

SearchUser frmFindProperty::User() const {
    VelCommon& common = host_.Common();
    SearchUser user{common.AgentId(), common.OfficeId(), boardId_, {}};
    if (!TraitsOf(context_.mode).byListingOwner || cmbListingOwner.Text() != show::CompanyListings)
        return user;
    QueryRows offices(common, PropertyQuery::CompanyOffices(user.officeId, quote_));
    for (; !offices.Eof(); offices.MoveNext())
        user.companyOffices.push_back(offices.Field("OffOfficeId").Text());
    return user;
}

void frmFindProperty::ShowMatches() {
    StopSearch();
    const HourglassPointer hourglass(desktop());
    const PropertyQuery query(context_, quote_);
    const std::string statement =
        query.Statement(Criteria(), User(), clsAllowedStatuses().SQLAllowedStatuses(""));
    SetUpColumns();
    records_ = std::make_unique<QueryRows>(host_.Common(), statement);
    tmrRows.SetEnabled(true);
    AddPortion();
}

void frmFindProperty::SetUpColumns() {
    lblMatchCount.SetCaption("");
    List.Clear();
    List.ClearColumns();
    List.SortBy(-1);
    List.AddColumn(TraitsOf(context_.mode).keyHeading, KeyColumnWidth, ListView::Sizing::GrowsWithTexts);
    columns_ = ResultColumns(context_.mode, sstTab.Tab() == StreetTab);
    for (const ResultColumn& column : columns_) List.AddColumn(column.heading);
}

void frmFindProperty::AddPortion() {
    if (records_ == nullptr) return;
    const int largest = List.SortColumn() < 0 ? LargestPortion : LargestSortedPortion;
    try {
        std::vector<PackedRow> rows = NextRows(std::clamp(List.Count() / 4, FirstPortion, largest));
        List.AddRows(std::move(rows), MoreRows::Follow);
        lblMatchCount.SetCaption(std::to_string(List.Count()));
        if (records_->Eof()) StopSearch();
    } catch (...) {
        StopSearch();  // the failure is reported once
        throw;
    }
}

std::vector<PackedRow> frmFindProperty::NextRows(int count) {
    std::vector<PackedRow> rows;
    rows.reserve(static_cast<std::size_t>(count));
    ListView::Row row;
    row.subItems.resize(columns_.size());
    for (; count > 0 && !records_->Eof(); --count, records_->MoveNext()) {
        records_->ReadText("SelectedId", row.key);
        row.text = row.key;
        for (std::size_t i = 0; i < columns_.size(); ++i)
            records_->ReadText(columns_[i].field, row.subItems[i]);
        rows.emplace_back(row);
    }
    return rows;
}

void frmFindProperty::StopSearch() {
    tmrRows.SetEnabled(false);
    if (records_ == nullptr) return;
    records_.reset();
    List.AddRows({}, MoreRows::No);
}

void frmFindProperty::SortByColumn(int column) {
    const bool again = List.SortColumn() == column;
    List.SortBy(column, !again || !List.SortAscending());
}

void frmFindProperty::Confirm() {
    confirmed_ = true;
    Close();
}

void frmFindProperty::Close() {
    StopSearch();
    Hide();
}

}  // namespace lumarin
