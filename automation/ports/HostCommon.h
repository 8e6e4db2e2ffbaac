#pragma once

#include "automation/calls/Object.h"
#include "automation/ports/HostServices.h"
#include "automation/ports/HostWindow.h"
#include "entry/VelCommon.h"

#include <memory>
#include <optional>
#include <string>

namespace lumarin::automation {

/// The host's `VelCommon`: every member called by name. What a host has to have throws when it is missing;
/// the members after `ServiceBroker` have defaults.
class HostCommon final : public VelCommon {
public:
    explicit HostCommon(Object common) : common_(std::move(common)) {}
    bool Is(IDispatch* common) const { return common_.Is(common); }

    HostMainForm& MainForm() override { return MainWindow(); }
    HostWindow& MainWindow();
    void EndJob(int jobIndex) override;
    std::string ProgramFolder() const override { return Text(L"ProgramFolder"); }
    std::string CityFolder() const override { return Text(L"CityFolder"); }
    std::string UserFolder() const override { return Text(L"UserFolder"); }
    std::string ConnectionName() const override { return Text(L"ConnectionName"); }
    std::string AgentId() const override { return Text(L"AgentId"); }
    std::string OfficeId() const override { return Text(L"OfficeId"); }
    std::string HelpFilePath() const override { return Text(L"HelpFilePath"); }
    bool IsOnline() const override { return TruthOf(common_.Get(L"IsOnline").Get()); }
    lumarin::ServiceBroker& ServiceBroker() override;

    bool IsOffline() const override { return Truth(L"IsOffline", false); }
    int UserLevel() const override;
    std::string UserBoardId() const override { return Text(L"UserBoardId", ""); }
    std::string ManagedOffices() const override { return Text(L"ManagedOffices", ""); }
    bool HasSeveralOffices() const override { return Truth(L"HasSeveralOffices", false); }
    std::string DocDomain() const override { return Text(L"DocDomain", ""); }
    std::string PdfInfoText() const override { return Text(L"PdfInfoText", ""); }
    std::string HelpSite() const override { return Text(L"HelpSite", ""); }
    std::string PhotoFolder() const override;
    std::string ListingPhotoFolder(std::int32_t listingNumber) const override;
    std::string FetchPhoto(std::int32_t listingNumber, int number, const std::string& version) override;
    void ExpectFetches() override;

    std::string StreetDirectionCaption() const override { return Text(L"StreetDirectionCaption", "Dir"); }
    bool ShowsStreetDirection() const override { return Truth(L"ShowsStreetDirection", true); }
    bool ReportsPhotoUpdates() const override { return Truth(L"ReportsPhotoUpdates", false); }
    std::vector<PhotoDescription> PhotoDescriptions() const override;
    std::vector<ListingStatus> ListingStatuses() const override;

private:
    std::string Text(MemberName member) const { return TextOf(common_.Get(member).Get()); }
    std::string Text(MemberName member, const char* missing) const;
    bool Truth(MemberName member, bool missing) const;
    template <class Entry>
    std::vector<Entry> Table(MemberName member) const;

    Object common_;
    std::optional<HostWindow> mainForm_;
    std::unique_ptr<Broker> broker_;
};

}  // namespace lumarin::automation
