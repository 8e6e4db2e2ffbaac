#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Error.h"
#include "entry/Services.h"
#include "forms/Form.h"

namespace lumarin {

/// The host's main window: owner of the component's windows.
class HostMainForm : public OwnerWindow {
public:
    /// Which window a job opens: 1 the document manager, anything else the photo window.
    virtual int Switch() const = 0;
    /// Called with (0, 9) after photos were sent, when the host asks for it (`ReportsPhotoUpdates`).
    virtual void Prog(int first, int second) = 0;
    /// Number of the listing that is selected in the host's own list; 0 for none. A question for a listing
    /// offers it.
    virtual std::int32_t SelectedListing() const { return 0; }
    /// Number of a listing that the user wants to see in the photo window; 0 for none. Asked whenever that
    /// window is activated, for the first time too. The host gives each wish once.
    virtual std::int32_t TakeListing() { return 0; }
};

/// The toolbar tool of the host that launched a job.
class HostTool {
public:
    virtual ~HostTool() = default;
    virtual void SetEnabled(bool enabled) = 0;
};

/// One of the descriptions that a photo can have.
struct PhotoDescription {
    std::int32_t code = 0;
    std::string text;
};

/// One of the states that a listing can be in.
struct ListingStatus {
    std::int32_t code = 0;
    std::string text;
};

/// Port: everything that the host gives. The component owns no database, server or user; it reads these
/// members whenever it needs them and keeps none of their values beyond a command, except where a window
/// says so. Folders end in a path separator. All calls arrive on the user-interface thread and may throw
/// Error. The host keeps the object alive as long as a job runs.
class VelCommon {
public:
    virtual ~VelCommon() = default;

    virtual HostMainForm& MainForm() = 0;
    /// The user closed the job's window. The host may call `clsLumarin::UnloadObj` from within.
    virtual void EndJob(int jobIndex) = 0;
    virtual std::string ProgramFolder() const = 0;
    virtual std::string CityFolder() const = 0;
    virtual std::string UserFolder() const = 0;
    virtual std::string ConnectionName() const = 0;
    virtual std::string AgentId() const = 0;
    virtual std::string OfficeId() const = 0;
    virtual std::string HelpFilePath() const = 0;
    virtual bool IsOnline() const = 0;
    virtual class ServiceBroker& ServiceBroker() = 0;

    virtual bool IsOffline() const = 0;
    /// A number that `ScopeOf` (UserScope.h) reads.
    virtual int UserLevel() const = 0;
    virtual std::string UserBoardId() const = 0;
    /// Office identifiers that the user may act for, in both forms in which they are looked for: with a
    /// comma before and after each, and in single quotes: ",OF1,OF2,'OF1','OF2',". "" when there are none.
    virtual std::string ManagedOffices() const = 0;
    virtual bool HasSeveralOffices() const = 0;
    virtual std::string DocDomain() const = 0;
    virtual std::string PdfInfoText() const = 0;
    /// Where the help pages of the document windows lie: an address without a slash at its end, before
    /// paths such as "/Tutorials/DocManager/DocManager.htm".
    virtual std::string HelpSite() const = 0;
    /// Root of the host's published photos, a tree of digit folders.
    virtual std::string PhotoFolder() const = 0;
    /// Folder within the tree in which this listing's published photos lie; it need not exist.
    virtual std::string ListingPhotoFolder(std::int32_t listingNumber) const = 0;
    /// Makes sure that photo `number` (from 1) of a listing is in the photo folder in the revision that
    /// `version` names ("" is whatever there is) and returns its path. Throws Error when it cannot be had.
    virtual std::string FetchPhoto(std::int32_t listingNumber, int number, const std::string& version) = 0;
    /// `FetchPhoto` is about to be called for nearly every published photo, once each. A host may use it to
    /// look at its photo folder ahead; it need not do anything.
    virtual void ExpectFetches() {}

    /// Caption of the listing list's street direction column.
    virtual std::string StreetDirectionCaption() const = 0;
    /// Whether listing lists show the street direction.
    virtual bool ShowsStreetDirection() const = 0;
    /// Whether the host's main window wants `Prog` after photos were sent.
    virtual bool ReportsPhotoUpdates() const = 0;
    /// The table of photo descriptions, in the order in which they are offered.
    virtual std::vector<PhotoDescription> PhotoDescriptions() const = 0;
    /// The listing statuses by which a search can be narrowed, in the order in which they are offered.
    virtual std::vector<ListingStatus> ListingStatuses() const = 0;
};

/// A new service object for one operation; throws Error when the host has none of that kind.
template <class Service>
std::unique_ptr<Service> RequestService(VelCommon& host) {
    std::unique_ptr<HostService> service = host.ServiceBroker().GetClassInstance(Service::ServiceName);
    if (dynamic_cast<Service*>(service.get()) != nullptr)
        return std::unique_ptr<Service>(static_cast<Service*>(service.release()));
    throw Error(13, "ServiceBroker",
                std::string("The host gave no service \"") + Service::ServiceName + "\"");
}

}  // namespace lumarin
