#include "host/desktop/PublishedListing.h"

#include "base/Files.h"
#include "host/database/Schema.h"
#include "host/server/PhotoStore.h"
#include "host/server/Server.h"

namespace host {

namespace {

std::string DescriptionOf(Database& database, const std::string& code) {
    Statement statement(database, "SELECT Description FROM PhotoDescriptions WHERE Code = ?1");
    statement.Bind(1, code);
    return statement.Step() ? statement.Text(0) : std::string();
}

}  // namespace

std::vector<PhotoContent> PublishedListing(const std::string& dataFolder, std::int32_t listing) {
    Database database(DatabasePath(dataFolder), DatabaseUse::Queries);
    const PhotoStore store(Server::PhotoFolder(dataFolder));
    std::vector<PhotoContent> photos;
    for (const PublishedPhoto& photo : PhotoStore::Published(database, listing))
        photos.push_back({lumarin::files::ReadAll(store.Path(listing, photo.fileName)),
                          DescriptionOf(database, photo.code)});
    return photos;
}

}  // namespace host
