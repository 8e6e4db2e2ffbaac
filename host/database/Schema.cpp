#include "host/database/Schema.h"

namespace host {

namespace {

constexpr int SchemaVersion = 3;

// Sale and rental listings have the same columns.
constexpr const char* ListingColumns = R"((
    ListNum INTEGER PRIMARY KEY,
    StreetNumber TEXT COLLATE NOCASE,
    StreetDirection TEXT COLLATE NOCASE,
    StreetName TEXT COLLATE NOCASE,
    AddressNumber INTEGER,
    OwnerName TEXT COLLATE NOCASE,
    LstStatus TEXT,
    ListOfficeId TEXT COLLATE NOCASE,
    ListAgentId TEXT COLLATE NOCASE,
    BoardId INTEGER,
    RevisionNumber INTEGER NOT NULL DEFAULT 1
);)";

constexpr const char* OtherTables = R"(
CREATE TABLE Tax (
    TaxId TEXT PRIMARY KEY COLLATE NOCASE,
    TaxHouseNumber TEXT COLLATE NOCASE,
    TaxStreetDir TEXT COLLATE NOCASE,
    TaxStreetName TEXT COLLATE NOCASE,
    TaxAddrNumber INTEGER,
    TaxOwnerName TEXT COLLATE NOCASE
);
-- A search for offices filters by the listings' column names too.
CREATE TABLE Office (
    OffOfficeId TEXT PRIMARY KEY COLLATE NOCASE,
    OffCompanyCode TEXT COLLATE NOCASE,
    OffName1 TEXT COLLATE NOCASE,
    BoardId INTEGER,
    ListOfficeId TEXT COLLATE NOCASE AS (OffOfficeId),
    ListAgentId TEXT AS (NULL)
);
CREATE TABLE Member (
    MemMemberId TEXT PRIMARY KEY COLLATE NOCASE,
    MemLastName TEXT COLLATE NOCASE,
    MemFirstName TEXT COLLATE NOCASE,
    MemMiddleInitial TEXT COLLATE NOCASE,
    MemOfficeId TEXT COLLATE NOCASE,
    BoardId INTEGER
);

-- What is published. PhotoVersion holds the byte lengths of the photos in order; PhotoDesc their number and
-- then their codes; both joined by commas and empty without photos.
CREATE TABLE Photo (
    PhoListNum INTEGER PRIMARY KEY,
    PhotoCount INTEGER,
    PhotoVersion TEXT,
    PhotoDesc TEXT
);
-- The server's files behind that: positions count from 1, files lie in photos/<ListNum>/.
CREATE TABLE ServerPhotos (
    ListNum INTEGER NOT NULL,
    Position INTEGER NOT NULL,
    FileName TEXT NOT NULL,
    Bytes INTEGER NOT NULL,
    Code TEXT NOT NULL,
    PRIMARY KEY (ListNum, Position)
) WITHOUT ROWID;
CREATE TABLE AppliedPackages (
    Serial INTEGER PRIMARY KEY,
    Name TEXT NOT NULL,
    Digest TEXT NOT NULL
);

CREATE TABLE PhotoDescriptions (
    Place INTEGER PRIMARY KEY,
    Code INTEGER NOT NULL UNIQUE,
    Description TEXT NOT NULL
);
INSERT INTO PhotoDescriptions (Code, Description) VALUES
    (2110, 'Front'), (2111, 'Rear'), (2112, 'Side'), (2113, 'Street'), (2114, 'Entrance'),
    (2115, 'Living Room'), (2116, 'Dining Room'), (2117, 'Kitchen'), (2118, 'Bedroom'),
    (2119, 'Bathroom'), (2120, 'Office'), (2121, 'Basement'), (2122, 'Garage'), (2123, 'Garden'),
    (2124, 'Pool'), (2125, 'Deck'), (2126, 'View'), (2127, 'Aerial'), (2128, 'Floor Plan'),
    (2129, 'Other');
CREATE TABLE Markers (Name TEXT PRIMARY KEY);
)";

// A document is a file or, with a DocUrl, a link. Its id is unique over all listings and never used again, so
// that an old address never shows another document. A file keeps the name and the digest of its upload, by
// which a repeated one is recognised.
constexpr const char* DocumentTables = R"(
CREATE TABLE Documents (
    DocID INTEGER PRIMARY KEY AUTOINCREMENT,
    DocListNum INTEGER NOT NULL,
    DocDesc TEXT NOT NULL,
    DocUrl TEXT NOT NULL DEFAULT '',
    DocFilesize INTEGER NOT NULL DEFAULT 0,
    DocUpload TEXT NOT NULL DEFAULT '',
    DocDigest TEXT NOT NULL DEFAULT ''
);
CREATE INDEX DocumentsOfListing ON Documents (DocListNum);
CREATE TABLE AppliedCommands (
    Serial INTEGER PRIMARY KEY,
    Command TEXT NOT NULL,
    Digest TEXT NOT NULL
);
)";

// What version 2 lacks.
constexpr const char* UploadColumns = R"(
ALTER TABLE Documents ADD COLUMN DocUpload TEXT NOT NULL DEFAULT '';
ALTER TABLE Documents ADD COLUMN DocDigest TEXT NOT NULL DEFAULT '';
)";

int VersionOf(Database& database) {
    Statement version(database, "PRAGMA user_version");
    return version.Step() ? static_cast<int>(version.Integer(0)) : 0;
}

}  // namespace

std::string DatabasePath(const std::string& dataFolder) { return dataFolder + "host.db"; }

void EnsureSchema(Database& database) {
    if (VersionOf(database) >= SchemaVersion) return;
    Transaction transaction(database);
    const int version = VersionOf(database);
    if (version >= SchemaVersion) return;  // Another process was first.
    if (version == 0) {
        database.Run(std::string("CREATE TABLE Listings ") + ListingColumns);
        database.Run(std::string("CREATE TABLE Rentals ") + ListingColumns);
        database.Run(OtherTables);
    }
    if (version == 1) database.Run("DROP TABLE Documents");  // Version 1 had no way to fill it.
    database.Run(version == 2 ? UploadColumns : DocumentTables);
    database.Run("PRAGMA user_version = " + std::to_string(SchemaVersion));
    transaction.Commit();
}

}  // namespace host
