// bench_data FOLDER: makes the hosts' data folders that are not there yet: search/, a million listings, and
// verify/, a hundred thousand published photos that all lie in the photo store as they should.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "base/Error.h"
#include "host/database/Database.h"
#include "host/database/Schema.h"
#include "host/services/DataFolder.h"

namespace {

namespace fs = std::filesystem;

constexpr int VerifiedListings = 10'000;
constexpr int PhotosPerListing = 10;
constexpr int FirstVerified = 100'000;

constexpr const char* MillionListings = R"(
    WITH RECURSIVE numbers(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM numbers WHERE n < 999999)
    INSERT INTO Listings SELECT 1000000 + n, 1 + n % 9000,
        substr('N NES SEE W ', 1 + n % 6 * 2, 2),
        CASE n % 5 WHEN 0 THEN 'Oak Street' WHEN 1 THEN 'Harbor View Drive' WHEN 2 THEN 'Quarry Road'
                   WHEN 3 THEN 'Elm' ELSE 'Old Mill Lane ' || n % 300 END,
        1 + n % 9000,
        CASE n % 3 WHEN 0 THEN 'Brigid O''Brien' WHEN 1 THEN 'Lee' ELSE 'Owner Number ' || n END,
        2001 + n % 7, 'OF' || (1 + n % 40), 'A' || (100 + n % 900), 1 + n % 2, 1 FROM numbers)";

/// A data folder appears whole or not at all.
template <class Fill>
void Make(const std::string& path, Fill fill) {
    if (fs::exists(path)) return;
    const std::string part = path + ".part";
    fs::remove_all(part);
    const std::string folder = host::PrepareDataFolder(part);
    {
        host::Database database(host::DatabasePath(folder), host::DatabaseUse::Changes);
        host::EnsureSchema(database);
        host::Transaction transaction(database);
        fill(database, folder + "photos/");
        transaction.Commit();
    }
    fs::rename(part, path);
}

/// Files have the length of a photo, and no bytes on the disk.
void AddVerified(host::Database& database, const std::string& photos) {
    host::Statement listing(database, "INSERT INTO Listings (ListNum) VALUES (?)");
    host::Statement photo(database, "INSERT INTO Photo VALUES (?, ?, ?, '')");
    for (int number = FirstVerified; number < FirstVerified + VerifiedListings; ++number) {
        const std::string folder =
            photos + std::to_string(number / 10 % 10) + "/" + std::to_string(number % 10) + "/";
        fs::create_directories(folder);
        std::string version;
        for (int i = 0; i < PhotosPerListing; ++i) {
            const std::string path = folder + std::to_string(number) + static_cast<char>('a' + i) + ".jpg";
            const int length = 20'000 + number % 977 + i;
            std::ofstream(path).close();
            fs::resize_file(path, static_cast<std::uintmax_t>(length));
            version += (i > 0 ? "," : "") + std::to_string(length);
        }
        listing.Bind(1, std::int64_t{number}).Finish();
        photo.Bind(1, std::int64_t{number}).Bind(2, std::int64_t{PhotosPerListing}).Bind(3, version).Finish();
    }
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    const std::string folder = std::string(arguments[1]) + "/";
    try {
        fs::create_directories(folder);
        Make(folder + "search",
             [](host::Database& database, const std::string&) { database.Run(MillionListings); });
        Make(folder + "verify", AddVerified);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
