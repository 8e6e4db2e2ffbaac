#include <optional>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "entry/QueryRows.h"
#include "listing/KeptFiles.h"
#include "listing/ListingAccess.h"
#include "listing/ListingFiles.h"
#include "listing/clsPMListingRec.h"

namespace lumarin {

namespace {

constexpr const char* SelectList =
    "SELECT "
    "ListNum,PhotoCount,PhotoVersion,PhotoDesc,StreetNumber,StreetName,StreetDirection,ListOfficeId,"
    "ListAgentId,"
    "RevisionNumber,BoardId";
constexpr const char* FromListings =
    " From Listings Left join photo on Listings.ListNum = Photo.PhoListNum WHERE Listings.ListNum = ";
constexpr const char* FromRentals =
    " From Rentals Left join photo on Rentals.ListNum = Photo.PhoListNum WHERE Rentals.ListNum = ";

/// The sale listing's row; else, when rentals are in use, the rental's; nothing when there is none.
std::optional<QueryRows> FindListing(VelCommon& host, std::int32_t listNum) {
    const std::string number = std::to_string(listNum);
    QueryRows listing(host, std::string(SelectList) + FromListings + number + ";");
    if (!listing.Eof()) return listing;
    if (!files::HasEntries(host.CityFolder() + files::FixedPath("Users\\Default\\Rental\\")))
        return std::nullopt;
    QueryRows rental(host, std::string(SelectList) + FromRentals + number + ";");
    return rental.Eof() ? std::nullopt : std::optional(std::move(rental));
}

/// The files of a listing that is being loaded: all gone at the end unless the load is finished.
class FetchedFiles {
public:
    FetchedFiles(const std::string& folder, std::int32_t listNum) : folder_(folder), listNum_(listNum) {}
    ~FetchedFiles() {
        if (!kept_) listing_files::TryDeleteAll(folder_, listNum_);
    }
    FetchedFiles(const FetchedFiles&) = delete;
    FetchedFiles& operator=(const FetchedFiles&) = delete;

    void Keep() { kept_ = true; }

private:
    const std::string& folder_;
    std::int32_t listNum_;
    bool kept_ = false;
};

}  // namespace

void clsPMListingRec::FillFrom(const Recordset& listing, const std::string& photoDescriptions) {
    state_ = ListingState{};
    state_.ListNum = listing.Field("ListNum").Integer();
    state_.PhotoCount = listing.Field("PhotoCount").Integer();
    if (state_.PhotoCount < 0 || state_.PhotoCount > MaximumPhotoSlots)
        throw IndexError("clsPMListingRec", state_.PhotoCount,
                         "the database's PhotoCount of listing " + RowText() + ", which can have 0 to " +
                             std::to_string(MaximumPhotoSlots) + " photos");
    state_.StreetNumber = listing.Field("StreetNumber").Text();
    state_.StreetDirection = listing.Field("StreetDirection").Text();
    state_.StreetName = listing.Field("StreetName").Text();
    // The first entry of the column is not a photo's code.
    const std::vector<std::string> codes = text::Split(photoDescriptions, ',');
    for (std::size_t i = 0; i < static_cast<std::size_t>(state_.PhotoCount); ++i) {
        const bool stored = !photoDescriptions.empty() && i + 1 < codes.size();
        PhotoEntry& photo = state_.Photos[i];
        photo.DescCode = stored ? codes[i + 1] : DefaultDescriptionCode;
        photo.DescText = descriptions_->Text(photo.DescCode);
    }
}

void clsPMListingRec::FetchPhotos(const std::string& version) {
    for (int index = 0; index < state_.PhotoCount; ++index)
        files::Copy(owner_->Host().Common().FetchPhoto(state_.ListNum, index + 1, version), PhotoPath(index));
}

LoadResult clsPMListingRec::LoadListing(const std::string& listingNumber, const std::string& folder,
                                        ListingOwner& owner, const DescriptionTable& descriptions,
                                        frmPhotoCrop& cropWindow) {
    const auto number = ParseListingNumber(listingNumber);
    if (!number) return LoadResult::Failed;
    Connect(owner, descriptions, cropWindow, folder);
    VelCommon& host = owner.Host().Common();
    auto listing = FindListing(host, *number);
    if (!listing || !MayOpenListing(host, *listing)) return LoadResult::Failed;
    FillFrom(*listing, listing->Field("PhotoDesc").Text());
    const std::string version = listing->Field("PhotoVersion").Text();
    listing->Close();
    const ListView::Row row = ListingRow();

    // Unreadable work of this listing may lie in the folder: it is kept, out of the way.
    if (files::FileExists(folder_ + listing_files::StateName(*number))) {
        kept_files::SetPhotosAside(folder_, *number);
        listing_files::SetAside(folder_, *number);
    }
    kept_files::FinishTaking(folder_, *number);
    listing_files::DeleteAll(folder_, *number);
    listing_files::SetLookalikesAside(folder_, *number);
    FetchedFiles fetched(folder_, *number);
    FetchPhotos(version);
    history_.Start(state_, true);
    SaveState();
    fetched.Keep();
    kept_files::Delete(folder_, *number);  // of a removed listing of that number, which this one replaces

    owner_->Listings().AddRow(row);
    UpdateAddState(state_.PhotoCount < owner_->PhotoMaximum());
    AfterLoad();
    owner_->Tools().EnableTool("SendPhotos", true);
    owner_->SendButton().SetEnabled(true);
    return LoadResult::Loaded;
}

}  // namespace lumarin
