#include "host/demo/SeedData.h"

#include "base/Files.h"
#include "base/Numbers.h"
#include "host/database/Schema.h"
#include "host/demo/DemoDocuments.h"
#include "host/demo/DemoListings.h"
#include "host/demo/FileMoveAnimation.h"
#include "host/demo/HelpFile.h"
#include "host/demo/JpegBytes.h"
#include "host/demo/ScenePainter.h"
#include "host/server/Server.h"
#include "host/services/DataFolder.h"

#include <QImage>

#include <set>

namespace host {

namespace {

namespace files = lumarin::files;

constexpr const char* Marker = "demo data";

struct Shot {
    Scene scene;
    const char* code;
};

// In the order in which an agent would show a property.
constexpr Shot Shots[] = {{Scene::Front, "2110"},
                          {Scene::Rear, "2111"},
                          {Scene::LivingRoom, "2115"},
                          {Scene::View, "2126"},
                          {Scene::Evening, "2110"}};

/// A sample photo as the component would have captured it.
std::string SamplePhoto(std::int32_t listing, std::size_t shot, const std::set<std::size_t>& takenSizes) {
    constexpr int Width = 480;
    constexpr int Height = 300;
    constexpr std::size_t LargestBytes = 30'000;
    const auto seed = static_cast<std::uint32_t>(listing);
    const QImage image =
        PaintScene(Shots[shot].scene, Width, Height, seed, seed * 31U + static_cast<std::uint32_t>(shot));
    std::string jpeg;
    for (int quality = 80; quality > 20; --quality) {
        jpeg = JpegBytes(image, quality);
        // Photos of one listing are told apart by their size.
        if (jpeg.size() <= LargestBytes && !takenSizes.contains(jpeg.size())) break;
    }
    return jpeg;
}

void PublishSamples(Database& database, const PhotoStore& store, const DemoListing& listing) {
    std::vector<PublishedPhoto> photos;
    std::set<std::size_t> sizes;
    for (std::size_t shot = 0; shot < static_cast<std::size_t>(listing.photos); ++shot) {
        const std::string jpeg = SamplePhoto(listing.number, shot, sizes);
        sizes.insert(jpeg.size());
        photos.push_back(store.Add(listing.number, jpeg, Shots[shot].code));
    }
    if (!photos.empty()) PhotoStore::Publish(database, listing.number, photos);
}

void InsertListings(Database& database, const std::string& table, const std::vector<DemoListing>& listings) {
    Statement insert(database,
                     "INSERT INTO " + table +
                         " SELECT ?1, ?2, ?3, ?4, ?5, ?6, ?7, OffOfficeId, ?8, Office.BoardId, 1"
                         " FROM Member JOIN Office ON MemOfficeId = OffOfficeId WHERE MemMemberId = ?8");
    for (const DemoListing& listing : listings) {
        insert.Bind(1, std::int64_t{listing.number}).Bind(2, listing.streetNumber).Bind(3, listing.direction);
        insert.Bind(4, listing.street).Bind(5, std::int64_t{lumarin::LeadingInteger(listing.streetNumber)});
        insert.Bind(6, listing.owner).Bind(7, listing.status).Bind(8, listing.agent).Finish();
    }
}

void InsertPeople(Database& database) {
    Statement office(
        database, "INSERT INTO Office (OffOfficeId, OffCompanyCode, OffName1, BoardId) VALUES (?, ?, ?, ?)");
    for (const DemoOffice& row : DemoOffices())
        office.Bind(1, row.id)
            .Bind(2, row.company)
            .Bind(3, row.name)
            .Bind(4, std::int64_t{row.board})
            .Finish();
    Statement member(database,
                     "INSERT INTO Member SELECT ?1, ?2, ?3, nullif(?4, ''), OffOfficeId, BoardId FROM Office"
                     " WHERE OffOfficeId = ?5");
    for (const DemoAgent& row : DemoAgents()) {
        member.Bind(1, row.id).Bind(2, row.last).Bind(3, row.first);
        member.Bind(4, row.middleInitial == nullptr ? "" : row.middleInitial).Bind(5, row.office).Finish();
    }
}

/// The county knows every property, and some that are not for sale.
void InsertTaxRecords(Database& database) {
    database.Run(
        "INSERT INTO Tax SELECT printf('T%07d', ListNum), StreetNumber, StreetDirection, StreetName, "
        "AddressNumber,"
        " OwnerName FROM Listings;"
        "INSERT INTO Tax SELECT printf('T%07d', ListNum), StreetNumber, StreetDirection, StreetName, "
        "AddressNumber,"
        " OwnerName FROM Rentals;"
        "INSERT INTO Tax VALUES ('T0900001', '1422', 'N', 'Oak Street', 1422, 'Brigid O''Brien'),"
        " ('T0900002', '90', '', 'Harbor View Drive', 90, NULL), ('T0900003', NULL, NULL, 'Quarry Road', "
        "NULL, 'The Crown')");
}

bool IsSeeded(Database& database) {
    Statement marker(database, "SELECT 1 FROM Markers WHERE Name = ?");
    return marker.Bind(1, Marker).Step();
}

void WriteAnimation(const std::string& path) {
    if (!files::FileExists(path)) files::WriteWhole(path, AviBytes(DrawFileMove()));
}

void SeedListings(Database& database, const std::string& root) {
    if (IsSeeded(database)) return;
    // Photos lie in the store before the rows name them; a seeding that is killed leaves only files that
    // the server deletes as leftovers.
    Transaction transaction(database);
    if (IsSeeded(database)) return;  // Another process was first.
    const PhotoStore store(Server::PhotoFolder(root));
    InsertPeople(database);
    InsertListings(database, "Listings", DemoSales());
    InsertListings(database, "Rentals", DemoRentals());
    InsertTaxRecords(database);
    for (const DemoListing& listing : DemoSales()) PublishSamples(database, store, listing);
    for (const DemoListing& listing : DemoRentals()) PublishSamples(database, store, listing);
    Statement(database, "INSERT INTO Markers (Name) VALUES (?)").Bind(1, Marker).Finish();
    transaction.Commit();
}

}  // namespace

void SeedData(const std::string& dataFolder) {
    const std::string root = PrepareDataFolder(dataFolder);
    WriteAnimation(root + files::FixedPath("program\\FileMove.avi"));
    InstallHelpFile(root + files::FixedPath("program\\help.html"));
    Database database(DatabasePath(root), DatabaseUse::Changes);
    EnsureSchema(database);
    SeedListings(database, root);
    SeedDocuments(database, root);
}

}  // namespace host
