#pragma once

#include "host/database/Database.h"
#include "host/server/ListingDocuments.h"
#include "host/server/PackageReader.h"
#include "host/server/PhotoStore.h"
#include "host/server/Spool.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace host {

/// The listing service's server, in process: it takes uploads, applies photo packages and document commands,
/// and hands out published photos and documents. It keeps everything in `server/` and `host.db` of the data
/// folder, and holds what it has accepted even when the program is killed at any moment; another program may
/// work on the same folder.
class Server {
public:
    static constexpr const char* UsualUserCode = "VELTRANE";

    /// Creates what is missing and deletes what an earlier run left unfinished. `dataFolder` ends in a
    /// separator; `userCode` is a part of the documents' addresses.
    explicit Server(const std::string& dataFolder, const std::string& userCode = UsualUserCode);

    /// Where uploads go: begin, chunks, end; abort at any time.
    Spool& Uploads() { return spool_; }

    /// Makes the finished upload of this name the published photos of its listings, all or nothing, and
    /// drops it. Throws Refusal, or lumarin::Error for a failing disk or database, with nothing changed. A
    /// package that was applied before is accepted and changes nothing: its sender missed the answer.
    void ApplyPackage(const std::string& name);

    /// Path of a listing's published photo, counted from 1; "" when there is none. The file may be gone
    /// after a package was applied by another program: ask again then.
    std::string PhotoFile(std::int32_t listing, int position);

    /// Makes one change to a listing's documents, or throws as `ApplyPackage`; see `ListingDocuments::Apply`.
    void ApplyDocument(const std::string& command, const DocumentSender& sender);

    /// Path of a published document; "" when there is no such file document.
    std::string DocumentFile(std::int32_t listing, std::int64_t document) {
        return documents_.File(listing, document);
    }

    /// Adds a line with the time to the server's log; never fails.
    void Log(const std::string& line) const noexcept;

    static std::string Folder(const std::string& dataFolder);
    static std::string PhotoFolder(const std::string& dataFolder);
    static std::string DocumentFolder(const std::string& dataFolder);

private:
    void Apply(const std::string& name, const std::string& path);
    void ApplyRows(const PackageReader& package, const std::string& name, const std::string& digest);
    void SweepListings(const PackageReader& package) noexcept;
    bool WasApplied(const std::string& name, const std::string& digest);
    void Remember(const std::string& name, const std::string& digest);
    void RequireListing(std::int32_t listing);
    std::vector<PublishedPhoto> Resolve(const PackageReader& package, const Manifest& manifest);

    std::string folder_;
    Database database_;
    PhotoStore store_;
    Spool spool_;
    ListingDocuments documents_;
};

}  // namespace host
