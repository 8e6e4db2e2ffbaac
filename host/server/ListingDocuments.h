#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/database/Database.h"
#include "host/server/DocumentCommand.h"
#include "host/server/DocumentStore.h"
#include "host/server/Spool.h"

namespace host {

/// Who sends a document command, and what that user may do.
struct DocumentSender {
    std::string userCode;
    std::string agent;
    int level = 0;                     ///< the user's level, see `lumarin::ScopeOf`
    std::vector<std::string> offices;  ///< those that the user may act for
    std::string board;
    std::int64_t largestFile = 0;  ///< bytes
};

/// The server's listing documents: their rows and their files, which belong together. What is kept holds
/// even when the program is killed at any moment.
class ListingDocuments {
public:
    /// Database and spool outlive it.
    ListingDocuments(Database& database, Spool& uploads, DocumentStore store)
        : database_(database), uploads_(uploads), store_(std::move(store)) {}

    /// Makes one change, all or nothing, and drops the upload that it used up. A command that was applied
    /// before is accepted and changes nothing: its sender missed the answer. So is a link that the listing
    /// already has, and a file that it has under the same upload name, which takes on the description. Throws
    /// Refusal, or lumarin::Error for a failing disk or database, with nothing changed.
    void Apply(const std::string& command, const DocumentSender& sender);

    /// Path of a file document; "" when there is none.
    std::string File(std::int32_t listing, std::int64_t document);

    /// Deletes the files that no row names. The caller holds a Transaction.
    void Sweep() { store_.Sweep(database_); }

private:
    void AddFile(const DocumentCommand& command, const DocumentSender& sender);
    bool TakeAsRepeated(const DocumentCommand& command, const std::string& digest);
    void AddLink(const DocumentCommand& command, const DocumentSender& sender);
    void Delete(const std::string& line, const DocumentCommand& command, const DocumentSender& sender);
    void RequireOwn(std::int32_t listing, const DocumentSender& sender);
    std::int64_t InsertRow(const DocumentCommand& command, std::uint64_t bytes, const std::string& digest);
    void Publish(const DocumentCommand& command, const std::string& upload, const std::string& digest);
    bool WasApplied(const std::string& line);
    void Remember(const std::string& line);

    Database& database_;
    Spool& uploads_;
    DocumentStore store_;
};

}  // namespace host
