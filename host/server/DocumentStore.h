#pragma once

#include <cstdint>
#include <string>

#include "host/database/Database.h"

namespace host {

/// The server's document files, where their web addresses say: a folder for the user code, in it "Docs" and
/// two folders for the last digits of the listing number. Whoever adds or sweeps holds the database's write
/// lock (a Transaction). Failures throw lumarin::Error.
class DocumentStore {
public:
    /// `folder` ends in a separator.
    DocumentStore(std::string folder, const std::string& userCode);

    std::string Path(std::int32_t listing, std::int64_t document) const;
    /// The path part of the document's web address, from its first slash.
    std::string Address(std::int32_t listing, std::int64_t document) const;
    /// Copies an uploaded file to a document's place; it appears there whole or not at all.
    void Add(std::int32_t listing, std::int64_t document, const std::string& upload) const;
    /// Deletes the files that no row of the database names, and the folders that become empty.
    void Sweep(Database& database) const;

private:
    std::string userCode_;
    std::string root_;
};

/// Whether the listing has this document, and it is a file, not a link.
bool IsFileDocument(Database& database, std::int32_t listing, std::int64_t document);

}  // namespace host
