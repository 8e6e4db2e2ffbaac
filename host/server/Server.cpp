#include "host/server/Server.h"

#include "base/Clock.h"
#include "base/FileSystem.h"
#include "base/Files.h"
#include "host/database/Schema.h"
#include "host/server/Digest.h"
#include "host/server/Refusal.h"

#include <cstdio>
#include <fstream>

namespace host {

namespace {

namespace files = lumarin::files;

/// Creates the folder before the members that live in it.
std::string EnsuredFolder(const std::string& folder) {
    files::EnsureFolder(folder);
    return folder;
}

}  // namespace

std::string Server::Folder(const std::string& dataFolder) { return dataFolder + "server" + files::Separator; }

std::string Server::PhotoFolder(const std::string& dataFolder) {
    return Folder(dataFolder) + "photos" + files::Separator;
}

std::string Server::DocumentFolder(const std::string& dataFolder) {
    return Folder(dataFolder) + "documents" + files::Separator;
}

Server::Server(const std::string& dataFolder, const std::string& userCode)
    : folder_(EnsuredFolder(Folder(dataFolder))),
      database_(DatabasePath(dataFolder), DatabaseUse::Changes),
      store_(EnsuredFolder(PhotoFolder(dataFolder))),
      spool_(folder_ + "spool" + files::Separator, folder_),
      documents_(database_, spool_, DocumentStore(DocumentFolder(dataFolder), userCode)) {
    EnsureSchema(database_);
    Transaction lock(database_);
    store_.Sweep(database_);
    documents_.Sweep();
}

void Server::ApplyDocument(const std::string& command, const DocumentSender& sender) {
    try {
        documents_.Apply(command, sender);
        Log("applied " + command);
    } catch (const std::exception& error) {
        Log("refused " + command + ": " + error.what());
        throw;
    }
}

void Server::ApplyPackage(const std::string& name) {
    const std::string path = spool_.Finished(name);
    if (path.empty()) throw Refusal("No package " + name + " was uploaded");
    try {
        Apply(name, path);
    } catch (const std::exception& error) {
        spool_.Drop(name);
        Log("refused " + name + ": " + error.what());
        throw;
    }
    spool_.Drop(name);
}

void Server::Apply(const std::string& name, const std::string& path) {
    const PackageReader package = PackageReader::FromFile(path);
    const std::string digest = DigestOf(path);
    try {
        ApplyRows(package, name, digest);
    } catch (...) {
        SweepListings(package);
        throw;
    }
    SweepListings(package);
}

void Server::ApplyRows(const PackageReader& package, const std::string& name, const std::string& digest) {
    Transaction transaction(database_);
    if (WasApplied(name, digest)) return Log("had applied before " + name);
    for (const Manifest& manifest : package.Manifests()) {
        RequireListing(manifest.listing);
        PhotoStore::Publish(database_, manifest.listing, Resolve(package, manifest));
    }
    Remember(name, digest);
    transaction.Commit();
    Log("applied " + name);
}

/// What stays behind here when it fails is deleted at the next start.
void Server::SweepListings(const PackageReader& package) noexcept {
    try {
        const Transaction lock(database_);
        for (const Manifest& manifest : package.Manifests()) store_.Sweep(database_, manifest.listing);
    } catch (const std::exception& error) {
        Log(std::string("left old photos: ") + error.what());
    }
}

std::vector<PublishedPhoto> Server::Resolve(const PackageReader& package, const Manifest& manifest) {
    const std::vector<PublishedPhoto> before = PhotoStore::Published(database_, manifest.listing);
    std::vector<PublishedPhoto> photos;
    for (std::size_t i = 0; i < manifest.photos.size(); ++i) {
        const ManifestPhoto& wanted = manifest.photos[i];
        if (wanted.published == ManifestPhoto::NoneYet) {
            photos.push_back(
                store_.Add(manifest.listing, package.ReadPhoto(manifest.listing, i), wanted.code));
            continue;
        }
        const auto index = static_cast<std::size_t>(wanted.published);
        if (index >= before.size())
            throw Refusal("Listing " + std::to_string(manifest.listing) + " has no published photo " +
                          PhotoLetter(index));
        photos.push_back({before[index].fileName, before[index].bytes, wanted.code});
    }
    return photos;
}

void Server::RequireListing(std::int32_t listing) {
    Statement found(
        database_,
        "SELECT 1 FROM Listings WHERE ListNum = ?1 UNION SELECT 1 FROM Rentals WHERE ListNum = ?1");
    if (!found.Bind(1, std::int64_t{listing}).Step())
        throw Refusal("There is no listing " + std::to_string(listing));
}

bool Server::WasApplied(const std::string& name, const std::string& digest) {
    Statement found(database_, "SELECT 1 FROM AppliedPackages WHERE Name = ? AND Digest = ?");
    return found.Bind(1, name).Bind(2, digest).Step();
}

void Server::Remember(const std::string& name, const std::string& digest) {
    Statement(database_, "INSERT INTO AppliedPackages (Name, Digest) VALUES (?, ?)")
        .Bind(1, name)
        .Bind(2, digest)
        .Finish();
    // A sender asks again soon or never.
    database_.Run(
        "DELETE FROM AppliedPackages WHERE Serial <= (SELECT max(Serial) FROM AppliedPackages) - 1000");
}

std::string Server::PhotoFile(std::int32_t listing, int position) {
    const std::vector<PublishedPhoto> photos = PhotoStore::Published(database_, listing);
    if (position < 1 || static_cast<std::size_t>(position) > photos.size()) return {};
    return store_.Path(listing, photos[static_cast<std::size_t>(position) - 1].fileName);
}

void Server::Log(const std::string& line) const noexcept {
    try {
        const lumarin::LocalTime now = lumarin::SystemClock().Now();
        char stamp[32];
        std::snprintf(stamp, sizeof stamp, "%04d-%02d-%02d %02d:%02d:%02d ", now.year, now.month, now.day,
                      now.hour, now.minute, now.second);
        std::ofstream(files::ToPath(folder_ + "server.log"), std::ios::app) << stamp + line + "\n";
    } catch (...) {
        // A log that cannot be written must not stop the server.
    }
}

}  // namespace host
