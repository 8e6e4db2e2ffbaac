#pragma once

#include "entry/VelCommon.h"
#include "host/database/Database.h"
#include "host/server/Server.h"
#include "host/services/Faults.h"
#include "host/services/ListingStatuses.h"
#include "host/services/PhotoTree.h"

#include <functional>
#include <string>

namespace host {

/// Who is signed in, and where the host keeps everything.
struct HostOptions {
    std::string dataFolder;  ///< With or without a separator at its end; created when it is missing.
    int level = 10;
    std::string agent = "A101";
    std::string office = "OF1";
    std::string board = "1";
    std::string connection = Server::UsualUserCode;
    bool offline = false;     ///< the user chose to work offline
    bool noInternet = false;  ///< there is no connection
    FaultScript faults{};     ///< what goes wrong with the services
};

/// The host's services for the component: folders, database, listing server and identity.
class HostVelCommon final : public lumarin::VelCommon, private lumarin::ServiceBroker {
public:
    /// Creates folders, database and default settings where they are missing. `mainForm` outlives this.
    /// Throws lumarin::Error when the data folder cannot be used.
    HostVelCommon(HostOptions options, lumarin::HostMainForm& mainForm, std::function<void(int)> endJob);

    lumarin::HostMainForm& MainForm() override { return mainForm_; }
    void EndJob(int jobIndex) override;
    std::string ProgramFolder() const override;
    std::string CityFolder() const override;
    std::string UserFolder() const override;
    std::string ConnectionName() const override { return options_.connection; }
    std::string AgentId() const override { return options_.agent; }
    std::string OfficeId() const override { return options_.office; }
    std::string HelpFilePath() const override;
    bool IsOnline() const override { return !options_.noInternet; }
    lumarin::ServiceBroker& ServiceBroker() override { return *this; }

    bool IsOffline() const override { return options_.offline; }
    int UserLevel() const override { return options_.level; }
    std::string UserBoardId() const override { return options_.board; }
    std::string ManagedOffices() const override;
    bool HasSeveralOffices() const override;
    std::string DocDomain() const override { return webHost_; }
    std::string PdfInfoText() const override { return "Veltrane"; }
    std::string HelpSite() const override { return "http://" + webHost_; }
    std::string PhotoFolder() const override;
    std::string ListingPhotoFolder(std::int32_t listingNumber) const override;
    void ExpectFetches() override { photos_.LookAhead(); }
    std::string FetchPhoto(std::int32_t listingNumber, int number, const std::string& version) override;

    std::string StreetDirectionCaption() const override { return "Dir"; }
    bool ShowsStreetDirection() const override { return true; }
    bool ReportsPhotoUpdates() const override { return true; }
    std::vector<lumarin::PhotoDescription> PhotoDescriptions() const override;
    std::vector<lumarin::ListingStatus> ListingStatuses() const override { return ListingStatusTable(); }

    Server& ListingServer() { return server_; }
    /// What goes wrong from now on.
    FaultScript& Faults() { return options_.faults; }

    /// On which port of this machine documents and help pages can be read.
    void SetWebPort(int port) { webHost_ = "localhost:" + std::to_string(port); }

private:
    std::unique_ptr<lumarin::HostService> GetClassInstance(const std::string& name) override;
    std::unique_ptr<lumarin::HostService> MakeService(const std::string& name);
    std::string Fetch(std::int32_t listingNumber, int number, const std::string& version);
    std::vector<std::string> CompanyOffices() const;
    DocumentSender Sender() const;

    HostOptions options_;
    lumarin::HostMainForm& mainForm_;
    std::function<void(int)> endJob_;
    Server server_;
    PhotoTree photos_;
    mutable Database queries_;
    std::string webHost_ = "localhost";
};

}  // namespace host
