#include "photo_window/frmLumarin.h"

#include "base/Files.h"
#include "base/Text.h"
#include "entry/QueryRows.h"
#include "listing/ListingFiles.h"
#include "photo_window/Counted.h"
#include "photo_window/ImportProgress.h"
#include "photo_window/PhotoTools.h"
#include "photo_window/PhotoUpload.h"

#include <algorithm>
#include <utility>

namespace lumarin {

namespace {

constexpr double InitialWidth = 1100 * TwipsPerPixel;
constexpr double InitialHeight = 720 * TwipsPerPixel;
/// Longer side of the picture shown for the selected photo, in pixels.
constexpr int PreviewPixels = 1024;
constexpr int HelpPage = 1;

/// What an earlier run has left may be changed without its steps being known.
std::string UnsentText(int steps) {
    return steps > 0 ? Counted(steps, "change") + " not sent" : "changes not sent";
}

// Columns of RecList.
constexpr int ListNumberColumn = 0;
constexpr int StreetNumberColumn = 1;
constexpr int StreetNameColumn = 3;

}  // namespace

frmLumarin::frmLumarin(const PhotoWindowPorts& ports)
    : JobWindow(ports.desktop, "frmLumarin"), ports_(ports) {
    SetCaption("Listing Photos");
    SetInitialSize(InitialWidth, InitialHeight);
    SetHelpContext(HelpPage);
    BuildPhotoTools(Menu);
    cmdAdd.SetEnabled(false);
    cmdRemove.SetEnabled(false);
    cmdSend.SetEnabled(false);
    for (Button& button : cmdMove) button.SetEnabled(false);
    SetUpPhotoList();
    WireEvents();
}

frmLumarin::~frmLumarin() = default;

void frmLumarin::WireEvents() {
    txtID.Change = [this] { cmdAdd.SetEnabled(!txtID.Text().empty()); };
    txtID.KeyPressed = [this](KeyPress& key) {
        if (key.code == static_cast<int>(Key::Enter)) EnterListing();
    };
    cmdAdd.Click = [this] { EnterListing(); };
    cmdRemove.Click = [this] { RemoveCurrentListing(); };
    cmdSend.Click = [this] { SendPhotos(); };
    cmdBrowse.Click = [this] { Browse(); };
    for (int button = 0; button < cmdMove.Size(); ++button)
        cmdMove(button).Click = [this, button] { MoveSelectedPhoto(button); };

    RecList.ItemClick = [this](int row) { ListingClicked(row); };
    RecList.ColumnClick = [this](int column) { SortListings(column); };
    RecList.KeyPressed = [this](const KeyDown& pressed, bool& used) {
        used = pressed.key == Key::Delete;
        if (used) RemoveCurrentListing();
    };
    RecList.MouseUp = [this](Mouse mouse) {
        if (mouse.button == MouseButton::Right) desktop().PopupMenu(Menu, "ListingPopup");
    };
    RecList.FilesDropped = [this](const std::vector<std::string>& paths) { DroppedOnList(paths); };

    PhotoList.ItemClick = [this](int row) {
        if (current_ == nullptr) return;
        current_->ShowPhoto(row);
        current_->UpdateMoveButtons();
        FollowInViewer();
    };
    PhotoList.KeyPressed = [this](const KeyDown& pressed, bool& used) { used = PhotoKey(pressed); };
    PhotoList.DoubleClick = [this] { ViewPhoto(); };
    PhotoList.MouseUp = [this](Mouse mouse) {
        if (mouse.button == MouseButton::Right) desktop().PopupMenu(Menu, "PhotoPopup");
    };
    PhotoList.FilesDropped = [this](const std::vector<std::string>& paths) { DroppedOnList(paths); };
    imgMain.FilesDropped = [this](const std::vector<std::string>& paths) { DroppedOnPicture(paths); };
    imgMain.MouseUp = [this](Mouse) { ViewPhoto(); };
    for (ListView* list : {&RecList, &PhotoList}) list->OtherDropped = [this] { DroppedSomethingElse(); };
    imgMain.OtherDropped = [this] { DroppedSomethingElse(); };
    Menu.ToolClick = [this](const std::string& tool) { ToolClicked(tool); };
    Menu.GroupOpens = [this](const std::string& group) {
        if (group == "View") CheckPresentDescriptions();
    };
}

void frmLumarin::Init(std::int32_t JobIndex) {
    jobIndex_ = JobIndex;
    VelCommon& host = ports_.host.Common();
    desktop().SetHelpFile(host.HelpFilePath());
    cropWindow_ = std::make_unique<frmPhotoCrop>(desktop(), ports_.imaging);
    settings_ = ReadWindowSettings(host);
    cropWindow_->SetPhotoSize(settings_.photoSize);
    descriptions_ = DescriptionTable(host.PhotoDescriptions());
    BuildDescriptionTools(Menu, descriptions_);
    std::vector<ComboBox::Item> views;
    for (const PhotoDescription& entry : descriptions_.Entries()) views.push_back({entry.text, entry.code});
    cropWindow_->SetViews(views);
    Menu.CheckTool("FilePreview", settings_.filePreview);
    RecallPhotoView();
    Load();
    PlaceWindow();
    AddColumns();
    workingFolder_ = host.UserFolder() + "Photo Import" + files::Separator;
    files::EnsureFolder(workingFolder_);
    RestoreUnsentWork();
}

void frmLumarin::PlaceWindow() {
    const Rect place = PositionOnScreen(settings_.startUpPosition, Bounds(), desktop().ScreenSize());
    MoveTo(place.left, place.top);
    placed_ = Bounds();
}

void frmLumarin::AddColumns() {
    RecList.AddColumn("List #", 1300);
    RecList.AddColumn("Number", 1100);
    RecList.AddColumn(ports_.host.Common().StreetDirectionCaption(), 700);
    RecList.AddColumn("Street Name");
    PhotoList.AddColumn("Photo");
    if (settings_.sortNames) RecList.SortBy({StreetNameColumn, StreetNumberColumn, ListNumberColumn});
}

void frmLumarin::RestoreUnsentWork() {
    // A run that was killed may have left files that were not finished, and a package that was not sent.
    const auto isLeftOver = [this](const std::string& name) {
        return IsOwnFile(name) && (!listing_files::ListingOf(name) || name.ends_with(".part"));
    };
    for (const std::string& name : files::List(workingFolder_, isLeftOver))
        files::TryDelete(workingFolder_ + name);
    const auto isState = [](const std::string& name) { return text::EndsWithIgnoringCase(name, ".dat"); };
    for (const std::string& name : files::List(workingFolder_, isState)) {
        try {
            TakeUpListing(name.substr(0, name.size() - 4));
        } catch (const Error& error) {
            unreadableStates_.emplace_back(name, error.Description());
        }
    }
    TakeUpRemovedListings();
    if (RecList.Count() > 0) MakeCurrent(records_.at(RecList.At(0).text).get());
    UpdateListingCommands();
    sourceAvailable_ = ports_.scanner != nullptr;
    UpdateAcquireTools();
}

clsPMListingRec* frmLumarin::TakeUpListing(const std::string& number) {
    auto record = std::make_unique<clsPMListingRec>();
    record->OpenSaved(number, descriptions_, *this, workingFolder_, *cropWindow_);
    lastStep_ = std::max(lastStep_, record->LatestStepNumber());
    return (records_[number] = std::move(record)).get();
}

void frmLumarin::OnActivate() {
    if (!std::exchange(activated_, true)) {
        placed_ = Bounds();  // where the desktop has let it stand
        ReportUnreadableStates();
        ReportLostSteps();
    }
    OpenWantedListing();
}

/// What the user has chosen in the host meanwhile; while a command runs, it waits for the next time.
void frmLumarin::OpenWantedListing() {
    RunCommand("OpenListing", [this] {
        if (const std::int32_t wanted = ports_.host.Common().MainForm().TakeListing(); wanted > 0)
            LookUpListing(std::to_string(wanted), "");
    });
}

void frmLumarin::ReportUnreadableStates() {
    if (unreadableStates_.empty()) return;
    std::string list;
    for (const auto& [name, reason] : unreadableStates_) list += "\n\n" + name + "\n" + reason;
    const Answer answer = desktop().ShowMessage(
        {.text = "The work on some listings could not be taken up. Its files were left in the folder " +
                 workingFolder_ + list +
                 "\n\nDo you want to set these files aside? They are then kept in the folder \"Set aside\" "
                 "in it, and this question does not come again.",
         .title = "Unsent photos",
         .buttons = Buttons::YesNo,
         .icon = Icon::Exclamation,
         .enter = Answer::No},
        this);
    if (answer == Answer::Yes) SetUnreadableStatesAside();
}

void frmLumarin::SetUnreadableStatesAside() {
    while (!unreadableStates_.empty()) {
        const std::string& name = unreadableStates_.back().first;
        const auto listing = listing_files::ListingOf(name);
        if (listing)
            listing_files::SetAside(workingFolder_, *listing);
        else
            listing_files::SetAside(workingFolder_, name);
        unreadableStates_.pop_back();
    }
}

LookupResult frmLumarin::LookUpListing(const std::string& listingNumber, const std::string& searchText) {
    if (const auto known = records_.find(listingNumber); known != records_.end()) {
        MakeCurrent(known->second.get());
        return LookupResult::Found;
    }
    auto record = std::make_unique<clsPMListingRec>();
    LoadResult result = LoadResult::Failed;
    std::string reason;
    try {
        const HourglassPointer hourglass(desktop());
        result = record->LoadListing(listingNumber, workingFolder_, *this, descriptions_, *cropWindow_);
    } catch (const DatabaseError& error) {
        reason = "\n\n" + error.Description();
    }
    if (result == LoadResult::Failed) {
        const std::string text = searchText.empty() ? listingNumber + " Is not a valid listing number"
                                                    : "No listings Found for " + searchText;
        desktop().ShowMessage({.text = text + reason,
                               .title = "Listing not found",
                               .buttons = Buttons::Ok,
                               .icon = Icon::Exclamation},
                              this);
        return LookupResult::NotFound;
    }
    clsPMListingRec* added = record.get();
    removed_.erase(added->ListNum());  // its files went when it was loaded anew
    // What could not be read of it was set aside; the listing's files are those of the new work now.
    std::erase_if(unreadableStates_, [added](const auto& unreadable) {
        return unreadable.first == listing_files::StateName(added->ListNum());
    });
    records_[std::to_string(added->ListNum())] = std::move(record);
    MakeCurrent(added);
    return LookupResult::Found;
}

void frmLumarin::MakeCurrent(clsPMListingRec* record) {
    current_ = record;
    UpdateListingCommands();
    ShowSent("");
    ShowSteps();
    if (record == nullptr) return;
    HighlightCurrent();
    record->ShowPhotos();
}

void frmLumarin::HighlightCurrent() {
    const int row = RecList.FindText(std::to_string(current_->ListNum()));
    if (row >= 0 && RecList.Selected() != row) RecList.Select(row);
}

void frmLumarin::ListingClicked(int row) {
    const auto clicked = records_.find(RecList.At(row).text);
    if (clicked == records_.end() || highlightGoesBack_) return;
    if (clicked->second.get() == current_) {
        current_->Settle();
        return;
    }
    try {
        if (current_ != nullptr) current_->SaveState();
    } catch (...) {  // it stays the current listing, and the list says so
        highlightGoesBack_ = true;
        HighlightCurrent();
        highlightGoesBack_ = false;
        throw;
    }
    MakeCurrent(clicked->second.get());
}

void frmLumarin::SortListings(int column) {
    const bool again = RecList.SortColumn() == column && RecList.SortAscending();
    RecList.SortBy(column, !again);
}

void frmLumarin::UpdateListingCommands() {
    const bool any = current_ != nullptr;
    cmdRemove.SetEnabled(any);
    Menu.EnableTool("RemoveEntry", any);
    RecList.SetAcceptsFiles(any);
    PhotoList.SetAcceptsFiles(any);
    if (!any) AddStateChanges(false);
    ShowPhotoCount();
    ShowUnsent();
}

void frmLumarin::AddStateChanges(bool enabled) {
    canAdd_ = enabled;
    imgMain.SetAcceptsFiles(enabled);
    UpdateAcquireTools();
}

void frmLumarin::StepsChange() {
    ShowSteps();
    ShowUnsent();
    FollowInViewer();
}

void frmLumarin::ShowPhotoCount() {
    if (current_ == nullptr) return lblPhotos.SetCaption("");
    const std::size_t selected = PhotoList.SelectedRows().size();
    lblPhotos.SetCaption("Listing " + std::to_string(current_->ListNum()) + ": " +
                         std::to_string(current_->GetPhotoCount()) + " of " + std::to_string(PhotoMaximum()) +
                         " photos" + (selected > 1 ? ", " + std::to_string(selected) + " selected" : ""));
}

/// Each row says how many photos its listing has, and stands out while the server lacks some change to them.
void frmLumarin::ShowUnsent() {
    int unsent = 0;
    for (int row = 0; row < RecList.Count(); ++row) {
        const std::string number = RecList.Cell(row, ListNumberColumn);
        const auto entry = records_.find(number);
        if (entry == records_.end()) continue;
        const clsPMListingRec& record = *entry->second;
        const bool changed = record.HasUnsentChanges();
        RecList.SetStrong(row, changed);
        RecList.SetToolTip(row, Counted(record.GetPhotoCount(), "photo") + ", " +
                                    (changed ? UnsentText(record.DoneSteps()) : "no changes"));
        unsent += changed ? 1 : 0;
    }
    const std::string changes =
        unsent == 0 ? "none changed" : std::to_string(unsent) + " with changes not sent";
    lblUnsent.SetCaption(RecList.Count() == 0 ? "" : Counted(RecList.Count(), "listing") + ", " + changes);
}

PicturePtr frmLumarin::LoadPhoto(const std::string& path) {
    try {
        return std::make_shared<const Picture>(ports_.imaging.Thumbnail(path, PreviewPixels));
    } catch (const Error&) {
        return nullptr;  // the list still names the photo; sending reports what is wrong with its file
    }
}

bool frmLumarin::OnQueryClose(CloseReason reason) {
    if (reason == CloseReason::Frame) ports_.host.Common().EndJob(jobIndex_);
    return true;
}

void frmLumarin::OnStopRequested() {
    if (upload_ != nullptr) upload_->Stop();
    OnCloseRefused();
}

/// The user's closing cancels an import; a sending has a Cancel of its own.
void frmLumarin::OnCloseRefused() {
    if (import_ != nullptr) import_->Stop();
}

void frmLumarin::OnUnload() {
    const VelCommon& host = ports_.host.Common();
    if (!lastFolder_.empty() && lastFolder_ != settings_.importFolder) WriteImportFolder(host, lastFolder_);
    const bool moved = Bounds().left != placed_.left || Bounds().top != placed_.top;
    if (moved && !StandsAt(settings_.startUpPosition, Bounds())) WriteStartUpPosition(host, Bounds());
    for (const auto& [number, record] : records_) record->CloseListing(LocalFiles::Keep, Publish::No);
    records_.clear();
    current_ = nullptr;
    cropWindow_.reset();
    viewer_.reset();
    AskAboutClipboard();
}

void frmLumarin::AskAboutClipboard() {
    if (!clipboardUsed_ || !desktop().ClipboardHasPicture()) return;
    const Answer answer =
        desktop().ShowMessage({.text = "You have placed a large amount of data in the clipboard. This data "
                                       "may take up quite a bit of memory and could "
                                       "degrade system performance if left on the clipboard. Would you like "
                                       "to leave this data on the clipboard so that "
                                       "it will be available to other applications?",
                               .title = "Data in the clipboard",
                               .buttons = Buttons::YesNo,
                               .icon = Icon::Question,
                               .enter = Answer::Yes},
                              this);
    if (answer == Answer::No) desktop().ClearClipboard();
}

}  // namespace lumarin
