#include "host/services/HostVelCommon.h"

#include "base/Files.h"
#include "base/Numbers.h"
#include "entry/Settings.h"
#include "entry/UserScope.h"
#include "host/database/Schema.h"
#include "host/services/DataFolder.h"
#include "host/services/DbService.h"
#include "host/services/DocService.h"
#include "host/services/PhotoService.h"

namespace host {

namespace {

namespace files = lumarin::files;

HostOptions Prepared(HostOptions options) {
    options.dataFolder = PrepareDataFolder(options.dataFolder);
    return options;
}

/// The byte length that the version names for photo `number` (from 1); nothing when it names none.
std::optional<std::uint64_t> PublishedLength(std::string_view version, int number) {
    for (; number > 1; --number) {
        const std::size_t comma = version.find(',');
        if (comma == std::string_view::npos) return std::nullopt;
        version.remove_prefix(comma + 1);
    }
    const auto length = lumarin::ParseInteger(version.substr(0, version.find(',')));
    return length && *length >= 0 ? std::optional<std::uint64_t>(*length) : std::nullopt;
}

}  // namespace

HostVelCommon::HostVelCommon(HostOptions options, lumarin::HostMainForm& mainForm,
                             std::function<void(int)> endJob)
    : options_(Prepared(std::move(options))),
      mainForm_(mainForm),
      endJob_(std::move(endJob)),
      server_(options_.dataFolder, options_.connection),
      photos_(options_.dataFolder + "photos" + files::Separator),
      queries_(DatabasePath(options_.dataFolder), DatabaseUse::Queries) {}

void HostVelCommon::EndJob(int jobIndex) {
    if (endJob_) endJob_(jobIndex);
}

std::string HostVelCommon::ProgramFolder() const {
    return options_.dataFolder + "program" + files::Separator;
}
std::string HostVelCommon::CityFolder() const { return options_.dataFolder + "city" + files::Separator; }
std::string HostVelCommon::UserFolder() const { return options_.dataFolder + "user" + files::Separator; }
std::string HostVelCommon::PhotoFolder() const { return photos_.Root(); }
std::string HostVelCommon::HelpFilePath() const { return ProgramFolder() + "help.html"; }

std::string HostVelCommon::ListingPhotoFolder(std::int32_t listingNumber) const {
    return photos_.Root() + PhotoTree::FolderOf(listingNumber);
}

std::string HostVelCommon::FetchPhoto(std::int32_t listingNumber, int number, const std::string& version) {
    return options_.faults.Do(HostCall::Fetch, [&] { return Fetch(listingNumber, number, version); });
}

std::string HostVelCommon::Fetch(std::int32_t listingNumber, int number, const std::string& version) {
    const auto name = [&] {
        return "photo " + std::to_string(number) + " of listing " + std::to_string(listingNumber);
    };
    if (listingNumber < 1 || number < 1 || number > static_cast<int>(MostPhotos))
        throw lumarin::Error(lumarin::ApplicationErrorNumber, "FetchPhoto", "There cannot be a " + name());
    const std::string photo = PhotoTree::NameOf(listingNumber, number);
    std::string local = photos_.Root() + photo;
    const std::optional<std::uint64_t> length = photos_.LengthOf(listingNumber, number, photo);
    if (length && *length == PublishedLength(version, number).value_or(*length)) return local;

    files::EnsureFolder(ListingPhotoFolder(listingNumber));
    constexpr int Attempts = 3;  // A file goes when another program has a package applied just now.
    for (int attempt = 1;; ++attempt) {
        const std::string published = server_.PhotoFile(listingNumber, number);
        if (published.empty())
            throw lumarin::Error(lumarin::ApplicationErrorNumber, "FetchPhoto",
                                 "The server has no " + name());
        try {
            files::Copy(published, local);
            return local;
        } catch (const lumarin::FileError& error) {
            if (attempt == Attempts)
                throw lumarin::Error(error.Number(), "FetchPhoto",
                                     "Cannot fetch " + name() + ". " + error.what());
        }
    }
}

std::vector<std::string> HostVelCommon::CompanyOffices() const {
    Statement rows(queries_,
                   "SELECT OffOfficeId FROM Office WHERE OffCompanyCode ="
                   " (SELECT OffCompanyCode FROM Office WHERE OffOfficeId = ?) ORDER BY OffOfficeId");
    rows.Bind(1, options_.office);
    std::vector<std::string> offices;
    while (rows.Step()) offices.push_back(rows.Text(0));
    if (offices.empty()) offices.push_back(options_.office);
    return offices;
}

std::string HostVelCommon::ManagedOffices() const {
    std::string plain = ",", quoted;
    for (const std::string& office : CompanyOffices()) {
        plain += office + ",";
        quoted += "'" + office + "',";
    }
    return plain + quoted;
}

DocumentSender HostVelCommon::Sender() const {
    constexpr int UsualKilobytes = 1000;
    const int kilobytes = lumarin::settings::ReadInteger(CityFolder() + "CityInfo.ini", "Lumarin",
                                                         "DocMaxSize", UsualKilobytes);
    return {options_.connection, options_.agent, options_.level,
            CompanyOffices(),    options_.board, std::int64_t{kilobytes} * 1024};
}

bool HostVelCommon::HasSeveralOffices() const {
    return lumarin::ScopeOf(options_.level) >= lumarin::UserScope::Office && CompanyOffices().size() > 1;
}

std::vector<lumarin::PhotoDescription> HostVelCommon::PhotoDescriptions() const {
    Statement rows(queries_, "SELECT Code, Description FROM PhotoDescriptions ORDER BY Place");
    std::vector<lumarin::PhotoDescription> descriptions;
    while (rows.Step()) descriptions.push_back({static_cast<std::int32_t>(rows.Integer(0)), rows.Text(1)});
    return descriptions;
}

std::unique_ptr<lumarin::HostService> HostVelCommon::GetClassInstance(const std::string& name) {
    return WithFaults(MakeService(name), options_.faults);
}

std::unique_ptr<lumarin::HostService> HostVelCommon::MakeService(const std::string& name) {
    if (name == lumarin::DbInterface::ServiceName)
        return std::make_unique<DbService>(queries_, options_.connection);
    if (name == lumarin::PhotoInterface::ServiceName)
        return std::make_unique<PhotoService>(server_, options_.connection);
    if (name == lumarin::DocInterface::ServiceName) return std::make_unique<DocService>(server_, Sender());
    constexpr std::int32_t CannotCreate = 429;
    throw lumarin::Error(CannotCreate, "ServiceBroker", "The host has no service \"" + name + "\"");
}

}  // namespace host
