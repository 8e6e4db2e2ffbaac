#include "host/automation/VelCommonObject.h"

#include "host/automation/ServiceObjects.h"

namespace host {

using lumarin::VelCommon;
using lumarin::automation::Arguments;
using lumarin::automation::IntegerOf;
using lumarin::automation::MakeObject;
using lumarin::automation::TextOf;
using lumarin::automation::Variant;

namespace {

/// Codes and texts by turns.
template <class Table>
Variant ByTurns(const Table& table) {
    std::vector<Variant> elements;
    for (const auto& row : table) {
        elements.emplace_back(row.code);
        elements.emplace_back(row.text);
    }
    return Variant(std::move(elements));
}

}  // namespace

VelCommonObject::VelCommonObject(VelCommon& common, WindowHandle mainWindow) : common_(common) {
    AddHost(mainWindow);
    AddUser();
    AddPhotos();
    AddTables();
}

void VelCommonObject::AddHost(const WindowHandle& mainWindow) {
    Member(L"MainForm", [form = MakeObject<MainFormObject>(common_.MainForm(), mainWindow)](
                            const Arguments&) { return Variant(form.Get()); });
    Member(L"EndJob", [this](const Arguments& arguments) {
        common_.EndJob(IntegerOf(arguments[0]));
        return Variant();
    });
    Property(L"ProgramFolder", &VelCommon::ProgramFolder);
    Property(L"CityFolder", &VelCommon::CityFolder);
    Property(L"UserFolder", &VelCommon::UserFolder);
    Property(L"ConnectionName", &VelCommon::ConnectionName);
    Property(L"HelpFilePath", &VelCommon::HelpFilePath);
    Property(L"HelpSite", &VelCommon::HelpSite);
    Property(L"IsOnline", &VelCommon::IsOnline);
    Property(L"IsOffline", &VelCommon::IsOffline);
    Member(L"ServiceBroker", [this](const Arguments&) {
        return Variant(MakeObject<BrokerObject>(common_.ServiceBroker()).Get());
    });
}

void VelCommonObject::AddUser() {
    Property(L"AgentId", &VelCommon::AgentId);
    Property(L"OfficeId", &VelCommon::OfficeId);
    Property(L"UserLevel", &VelCommon::UserLevel);
    Property(L"UserBoardId", &VelCommon::UserBoardId);
    Property(L"ManagedOffices", &VelCommon::ManagedOffices);
    Property(L"HasSeveralOffices", &VelCommon::HasSeveralOffices);
    Property(L"DocDomain", &VelCommon::DocDomain);
    Property(L"PdfInfoText", &VelCommon::PdfInfoText);
}

void VelCommonObject::AddPhotos() {
    Property(L"PhotoFolder", &VelCommon::PhotoFolder);
    Member(L"ListingPhotoFolder", [this](const Arguments& arguments) {
        return Variant(common_.ListingPhotoFolder(IntegerOf(arguments[0])));
    });
    Member(L"FetchPhoto", [this](const Arguments& arguments) {
        return Variant(
            common_.FetchPhoto(IntegerOf(arguments[0]), IntegerOf(arguments[1]), TextOf(arguments[2])));
    });
    Member(L"ExpectFetches", [this](const Arguments&) {
        common_.ExpectFetches();
        return Variant();
    });
}

void VelCommonObject::AddTables() {
    Property(L"StreetDirectionCaption", &VelCommon::StreetDirectionCaption);
    Property(L"ShowsStreetDirection", &VelCommon::ShowsStreetDirection);
    Property(L"ReportsPhotoUpdates", &VelCommon::ReportsPhotoUpdates);
    Member(L"PhotoDescriptions", [this](const Arguments&) { return ByTurns(common_.PhotoDescriptions()); });
    Member(L"ListingStatuses", [this](const Arguments&) { return ByTurns(common_.ListingStatuses()); });
}

}  // namespace host
