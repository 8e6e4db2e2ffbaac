#include "base/Error.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "base/Text.h"
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

/// Thrown inside a load only: the query itself failed, which counts as "no such listing".
struct DatabaseFailed {};

std::unique_ptr<Recordset> Query(VelCommon& host, const std::string& sql) {
    try {
        return RequestService<DbInterface>(host)->Execute(host.ConnectionName(), sql);
    } catch (const std::exception&) {
        throw DatabaseFailed();
    }
}

/// The sale listing's row; else, when rentals are in use, the rental's; null when there is none.
std::unique_ptr<Recordset> FindListing(VelCommon& host, std::int32_t listNum) {
    const std::string number = std::to_string(listNum);
    auto listing = Query(host, std::string(SelectList) + FromListings + number + ";");
    if (!listing->Eof()) return listing;
    if (!files::HasEntries(host.CityFolder() + files::FixedPath("Users\\Default\\Rental\\"))) return nullptr;
    listing = Query(host, std::string(SelectList) + FromRentals + number + ";");
    return listing->Eof() ? nullptr : std::move(listing);
}

class ClosedAtEnd {
public:
    explicit ClosedAtEnd(Recordset& rows) : rows_(rows) {}
    ~ClosedAtEnd() { rows_.Close(); }
    ClosedAtEnd(const ClosedAtEnd&) = delete;
    ClosedAtEnd& operator=(const ClosedAtEnd&) = delete;

private:
    Recordset& rows_;
};

}  // namespace

void clsPMListingRec::FillFrom(const Recordset& listing, const std::string& photoDescriptions) {
    state_ = ListingState{};
    state_.ListNum = listing.Field("ListNum").Integer();
    state_.PhotoCount = listing.Field("PhotoCount").Integer();
    if (state_.PhotoCount < 0 || state_.PhotoCount > MaximumPhotoSlots)
        throw IndexError("clsPMListingRec", state_.PhotoCount);
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
    int index = 0;
    try {
        for (; index < state_.PhotoCount; ++index)
            files::Copy(owner_->Host().Common().FetchPhoto(state_.ListNum, index + 1, version),
                        PhotoPath(index));
    } catch (...) {
        for (; index >= 0; --index) files::TryDelete(PhotoPath(index));
        throw;
    }
}

LoadResult clsPMListingRec::LoadListing(const std::string& listingNumber, const std::string& folder,
                                        ListingOwner& owner, const DescriptionTable& descriptions,
                                        frmPhotoCrop& cropWindow) {
    const auto number = ParseListingNumber(listingNumber);
    if (!number) return LoadResult::Failed;
    Connect(owner, descriptions, cropWindow, folder);
    try {
        VelCommon& host = owner.Host().Common();
        const auto listing = FindListing(host, *number);
        if (listing == nullptr) return LoadResult::Failed;
        const ClosedAtEnd closed(*listing);
        if (!MayOpenListing(host, *listing)) return LoadResult::Failed;
        FillFrom(*listing, listing->Field("PhotoDesc").Text());
        // Unreadable work of this listing may lie in the folder: it is kept, out of the way.
        if (files::FileExists(folder_ + listing_files::StateName(*number)))
            listing_files::SetAside(folder_, *number);
        listing_files::DeleteAll(folder_, *number);
        FetchPhotos(listing->Field("PhotoVersion").Text());
    } catch (const DatabaseFailed&) {
        return LoadResult::Failed;
    }
    SaveState();
    AddRow();
    UpdateAddState(state_.PhotoCount < owner_->PhotoMaximum());
    AfterLoad();
    owner_->Tools().EnableTool("SendPhotos", true);
    owner_->SendButton().SetEnabled(true);
    return LoadResult::Loaded;
}

}  // namespace lumarin
