#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "imaging/PhotoResult.h"
#include "imaging/frmPhotoCrop.h"
#include "listing/DescriptionTable.h"
#include "listing/ListingOwner.h"
#include "listing/ListingState.h"
#include "listing/PhotoHistory.h"
#include "listing/PhotoJournal.h"

namespace lumarin {

enum class LocalFiles { Delete, Keep };
enum class Publish { No, Yes };

/// Where `LoadListing` came out.
enum class LoadResult { Loaded, Failed };

/// One listing whose photos are edited: its state, its files in the working folder, and its row in the
/// owner's listing list. Photo positions are counted from 0. File errors reach the caller as FileError;
/// what was done before stays consistent on disk, even when the program is killed (PhotoJournal.h).
/// The owner, the description table and the crop window outlive the record or its `CloseListing`.
class clsPMListingRec {
public:
    void AfterLoad() {}

    /// Fills the owner's photo list with this listing's photos and shows the first.
    void ShowPhotos();

    /// Loads the listing from the host's database with its published photos. Failed when the number is not a
    /// listing number, there is no such listing or the user may not open it. Throws DatabaseError when the
    /// database fails, and Error for a photo that the host cannot give or a disk that takes nothing. However
    /// a load fails, nothing that it fetched is left in the folder.
    LoadResult LoadListing(const std::string& listingNumber, const std::string& folder, ListingOwner& owner,
                           const DescriptionTable& descriptions, frmPhotoCrop& cropWindow);

    /// Ends work on the listing; the record is not to be used afterwards, unless this throws: then the local
    /// files are all there. Files that are deleted wait with the kept ones (KeptFiles.h): given back there,
    /// the listing can be taken up again with `OpenSaved`, and this removal be done again.
    void CloseListing(LocalFiles localFiles, Publish publish);

    /// Shows the photo of a row of the photo list in the owner's preview.
    void ShowPhoto(int row);

    /// Brings files and state together again when a change was interrupted by a failing disk; throws when it
    /// still fails. Every operation does so first. False when there was nothing to do.
    bool Settle();

    /// Moves the selected photo one place: 1 up, -1 down. The caller sees to it that there is such a place.
    void MovePhoto(std::int16_t& direction);

    /// Adds one photo through the crop window. `source` is a file for CropMode::File, else unused.
    PhotoResult AddPhoto(const std::string& source, CropMode mode, bool showAbort);

    std::int32_t GetPhotoCount() const { return state_.PhotoCount; }

    /// Removes the selected photo; nothing when there is none.
    void RemovePhoto();

    // Several photos, given by their positions in any order, as one step: after a kill it is done as a whole
    // or not at all, and one `Undo` takes it back. Positions that are not there are passed over. Afterwards
    // the photos that were moved or described are selected, or the one that took the place of the removed
    // ones.

    void RemovePhotos(const std::vector<int>& photos);
    /// Each one place, 1 up, -1 down; those that have come to the end of the list stay.
    void ShiftPhotos(const std::vector<int>& photos, int direction);
    /// Next to each other and in their order, in front of the photo that is at `before` now; the photo count
    /// stands for the end.
    void MovePhotos(const std::vector<int>& photos, int before);
    void DescribePhotos(const std::vector<int>& photos, const std::string& text, const std::string& code);

    /// The step that `Undo` takes back and the one that `Redo` does again; nothing when there is none.
    /// Adding, removing, moving and describing photos are steps, and so is the removal of the listing. They
    /// outlive the program and end when the listing is sent.
    std::optional<StepName> NextUndo() const { return history_.NextUndo(); }
    std::optional<StepName> NextRedo() const { return history_.NextRedo(); }
    /// Throws ApplicationError, after everything else was done, when a photo that was to come back is lost. A
    /// removal of the listing is not taken back nor done here.
    void Undo();
    void Redo();
    /// How many steps can be undone.
    int DoneSteps() const { return history_.DoneSteps(); }
    std::uint32_t LatestStepNumber() const { return history_.LatestNumber(); }
    /// Whether earlier steps could not be read when the listing was taken up; says so once.
    bool TakeLostHistory() { return std::exchange(historyLost_, false); }

    void UpdateAddState(bool enabled);
    void UpdatePhotoCommands();
    void UpdateMoveButtons();

    /// Writes the state file.
    void SaveState();

    /// Takes up a listing that an earlier run left in the folder. Throws Error, and adds nothing, when its
    /// saved state cannot be read.
    void OpenSaved(const std::string& listingNumber, const DescriptionTable& descriptions,
                   ListingOwner& owner, const std::string& folder, frmPhotoCrop& cropWindow);

    std::string PhotoPath(int index) const;

    /// Writes the upload manifest in place of the state file and appends what is to be packaged to
    /// `fileList`, each file as a blank and its quoted path. `publishedSizes`: byte lengths of the published
    /// photos in their order, separated by commas. Returns the number of photos that are sent.
    int PrepareUpload(std::string& fileList, const std::string& publishedSizes);

    /// Puts the state of before `PrepareUpload` back, in memory and in the state file.
    void RestoreAfterUpload();

    /// Gives the selected photo another description. Nothing without a selection.
    void SetDescription(const std::string& text, const std::string& code);

    std::int32_t ListNum() const { return state_.ListNum; }
    const ListingState& State() const { return state_; }
    /// Whether something was changed that the server does not have. True also when an earlier run did not
    /// leave word of it.
    bool HasUnsentChanges() const { return !history_.IsAsPublished(); }

private:
    void Connect(ListingOwner& owner, const DescriptionTable& descriptions, frmPhotoCrop& cropWindow,
                 const std::string& folder);
    void TakeUp(photo_journal::SavedWork recovered);
    void TakeUpHistory(photo_journal::SavedWork recovered);
    void Interrupted() noexcept;
    void FillFrom(const Recordset& listing, const std::string& photoDescriptions);
    void FetchPhotos(const std::string& version);
    ListView::Row ListingRow() const;
    std::string RowText() const { return std::to_string(state_.ListNum); }
    PhotoEntry& EntryAt(int index);
    ListView::Row PhotoRow(int index) const;
    void RefreshPictures(int from);
    std::uint64_t LengthToSend(int index) const;
    bool IsDuplicate(const std::string& path) const;
    void AppendPhoto();
    void RenameForMove(int from, int to);
    photo_journal::Entry JournalEntry() const;
    void WriteJournal();
    void SweepKept() const noexcept;
    void PublishFiles();
    void NoteRemoval();
    PhotoHistory Noted(StepKind kind, const std::vector<std::uint32_t>& photos, PhotoOrder after) const;

    // PhotoSteps.cpp
    std::vector<int> Existing(std::vector<int> photos) const;
    void TakeStep(StepKind kind, const std::vector<int>& photos, PhotoOrder after);
    void Arrange(PhotoHistory next);
    void Become(PhotoHistory next);
    void ShowArranged(const std::vector<std::uint32_t>& selected, int place);
    void Travel(PhotoHistory next, const std::vector<std::uint32_t>& photos, const char* command);
    std::vector<KnownPhoto> LostPhotos(const PhotoOrder& wanted) const;
    void LeaveOwnersList();

    ListingState state_;
    std::optional<ListingState> savedState_;
    std::string folder_;
    PhotoHistory history_;
    bool journaled_ = false;  ///< the journal on disk is up to date
    bool historyLost_ = false;
    bool interrupted_ = false;  ///< the files are not as the state says
    ListingOwner* owner_ = nullptr;
    const DescriptionTable* descriptions_ = nullptr;
    frmPhotoCrop* cropWindow_ = nullptr;
};

}  // namespace lumarin
