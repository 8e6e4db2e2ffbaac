#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Clock.h"
#include "entry/JobPorts.h"
#include "entry/JobWindow.h"
#include "forms/Controls.h"
#include "forms/Desktop.h"
#include "forms/ListView.h"
#include "forms/ToolBar.h"
#include "imaging/Imaging.h"
#include "imaging/Scanner.h"
#include "imaging/frmPhotoCrop.h"
#include "imaging/frmPhotoViewer.h"
#include "listing/clsPMListingRec.h"
#include "lookup/EngineVersion.h"
#include "photo_window/WindowSettings.h"
#include "photo_window/ZipArchiver.h"

namespace lumarin {

class EachStep;
class ImportProgress;
class PhotoUpload;
class RefusedFiles;
struct SentPart;

/// The ports that the photo window works with; all outlive it.
struct PhotoWindowPorts : JobPorts {
    ZipArchiver& archiver;
};

/// What an import does with the files that it is given.
enum class ImportKind { Open, SmartLoad };

enum class LookupResult { Found, NotFound };

/// The photo window: gathers listings, shows and arranges the photos of the selected one, and sends the
/// changed photos of all of them.
class frmLumarin : public JobWindow, private ListingOwner {
public:
    explicit frmLumarin(const PhotoWindowPorts& ports);
    ~frmLumarin() override;

    TextBox txtID{*this, "txtID", {"&Listing number:", "Type a listing's number and press Enter"}};
    Button cmdAdd{*this, "cmdAdd", {"&Add", "Bring the listing into this window"}};
    Button cmdBrowse{*this, "cmdBrowse", {"&Browse...", "Search for listings"}};
    Button cmdRemove{*this, "cmdRemove", {"Re&move", "Take the listing out of this window"}};
    Button cmdSend{*this, "cmdSend", {"&Send Photos", "Send the photos of all these listings to the server"}};
    ControlArray<Button, 2> cmdMove{
        *this, "cmdMove", {{.toolTip = "Move the photo up"}, {.toolTip = "Move the photo down"}}};
    ListView RecList{*this, "RecList", {.accessibleName = "Listings"}};
    ListView PhotoList{*this, "PhotoList", {"&Photos of the listing:"}};
    ComboBox cmbPhotoView{
        *this,
        "cmbPhotoView",
        {.toolTip = "How the photos of the listing are shown", .accessibleName = "How the photos are shown"}};
    PictureBox imgMain{*this, "imgMain", {.accessibleName = "Selected photo"}};
    Label lblUnsent{*this, "lblUnsent"};  ///< how many listings there are, and how many have unsent changes
    Label lblPhotos{*this, "lblPhotos"};  ///< how many photos of how many the listing has
    Label lblSent{*this, "lblSent"};      ///< what the last sending, or a cancelled import, has come to
    ToolBar Menu{*this, "Menu"};

    /// Called once, before the window is shown: reads the settings, takes up unsent work. Throws Error when
    /// the "Photo Size" setting cannot be used.
    void Init(std::int32_t JobIndex) override;

    /// Brings a listing into the window and makes it the current one; says so when it cannot be found.
    LookupResult LookUpListing(const std::string& listingNumber, const std::string& searchText);

    /// Imports the files of a selection, see `SelectedPaths`.
    void ImportPhotos(const std::string& selection, ImportKind kind);

private:
    // ListingOwner
    ListView& Listings() override { return RecList; }
    ListView& Photos() override { return PhotoList; }
    PictureBox& PhotoPreview() override { return imgMain; }
    Button& MoveUpButton() override { return cmdMove(0); }
    Button& MoveDownButton() override { return cmdMove(1); }
    Button& SendButton() override { return cmdSend; }
    ToolBar& Tools() override { return Menu; }
    int PhotoMaximum() const override { return settings_.photoMaximum; }
    void AddStateChanges(bool enabled) override;
    void PhotoCountChanges() override { ShowPhotoCount(); }
    void StepsChange() override;
    std::uint32_t NextStepNumber() override { return ++lastStep_; }
    PicturePtr LoadPhoto(const std::string& path) override;
    Desktop& ScreenDesktop() override { return desktop(); }
    HostLink& Host() override { return ports_.host; }
    const Form& Window() const override { return *this; }

    // Form
    void OnActivate() override;
    bool OnQueryClose(CloseReason reason) override;
    void OnUnload() override;
    void OnStopRequested() override;
    void OnCloseRefused() override;

    void WireEvents();
    void PlaceWindow();
    void AddColumns();
    void RestoreUnsentWork();
    clsPMListingRec* TakeUpListing(const std::string& number);
    void ReportUnreadableStates();
    void SetUnreadableStatesAside();
    void UpdateListingCommands();
    void ShowPhotoCount();
    void ShowUnsent();
    void MakeCurrent(clsPMListingRec* record);
    void HighlightCurrent();
    void ListingClicked(int row);
    void SortListings(int column);
    void AskAboutClipboard();
    void OpenWantedListing();

    // Commands
    void ToolClicked(const std::string& name);
    void EnterListing();
    void Browse();
    void VerifyPhotos();
    void ShowHelp();

    // PhotoImport.cpp
    void OpenFiles(ImportKind kind);
    void ImportEach(const std::vector<std::string>& paths, ImportKind kind, ImportProgress& progress,
                    RefusedFiles& refused);
    bool EnterListingOfFile(const std::string& path, RefusedFiles& refused,
                            std::map<std::string, std::string>& unavailable);
    void DroppedOnList(const std::vector<std::string>& paths);
    void DroppedOnPicture(const std::vector<std::string>& paths);
    void DroppedSomethingElse();

    // PhotoViewing.cpp
    void ViewPhoto();
    void ShowInViewer(PicturePtr picture);
    void FollowInViewer();

    // PhotoArranging.cpp
    void SetUpPhotoList();
    void ShowPhotosAs(int view);
    void RecallPhotoView();
    void PhotoViewChosen();
    bool PhotoKey(const KeyDown& pressed);
    void DragPhotos(int before);

    // Acquisition.cpp
    void Acquire(bool several);
    AfterPage TakePage(const ScannedPage& page, bool several);
    void SelectSource();
    void UpdateAcquireTools();
    void CopyPhoto();
    void PastePhoto();
    void MoveSelectedPhoto(int button);
    void DeleteSelectedPhoto();
    void RemoveCurrentListing();
    void ToggleFilePreview();
    void ChooseDescription(const std::string& tool);
    void CheckPresentDescriptions();

    // UndoCommands.cpp
    void Undo();
    void Redo();
    void ShowSteps();
    void TakeUpRemovedListings();
    void NoteRemoved(const clsPMListingRec& removed);
    std::optional<std::int32_t> RemovalToUndo() const;
    void BringListingBack(std::int32_t listNum);
    void ReportLostSteps();
    void ForgetRemovedListings();

    // SendPhotos.cpp
    void SendPhotos();
    bool TrySend(std::map<std::string, bool>& removalsConfirmed);
    bool AskRemoval(std::int32_t listNum);
    std::map<std::string, std::string> PublishedSizes() const;
    std::string BuildFileList(const std::map<std::string, std::string>& publishedSizes,
                              const std::map<std::string, bool>& removalsConfirmed,
                              std::vector<SentPart>& parts);
    void ShowSent(const std::string& line);
    void ShowNotSent(const std::string& reason);
    void RestoreRecords();
    void EmptyWindow();
    void ClearWorkingFolder(EachStep& rest);
    bool IsOwnFile(const std::string& name) const;

    PhotoWindowPorts ports_;
    std::int32_t jobIndex_ = 0;
    WindowSettings settings_;
    DescriptionTable descriptions_;
    std::string workingFolder_;
    std::string lastFolder_;  ///< of the files that were last chosen
    std::unique_ptr<frmPhotoCrop> cropWindow_;
    std::map<std::string, std::unique_ptr<clsPMListingRec>> records_;  ///< by listing number
    clsPMListingRec* current_ = nullptr;
    std::map<std::int32_t, std::uint32_t>
        removed_;                       ///< listings that can come back, with their removals' numbers
    std::uint32_t lastStep_ = 0;        ///< number of the last step of all listings
    PhotoUpload* upload_ = nullptr;     ///< while a send runs
    ImportProgress* import_ = nullptr;  ///< while an import runs
    std::string sending_;               ///< what it sends, in words
    bool clipboardUsed_ = false;
    std::unique_ptr<frmPhotoViewer> viewer_;
    std::string scannerSource_;  ///< chosen with Select Source; "" is the first there is
    bool canAdd_ = false;        ///< the current listing takes another photo
    bool sourceAvailable_ = false;
    bool acquiring_ = false;
    std::vector<std::pair<std::string, std::string>> unreadableStates_;  ///< file name and reason
    bool highlightGoesBack_ = false;
    Rect placed_;  ///< where the window opened: elsewhere it has been moved
    bool activated_ = false;
};

}  // namespace lumarin
