#include "host/server/DocumentStore.h"

#include <filesystem>
#include <set>
#include <vector>

#include "base/FileSystem.h"
#include "base/Files.h"
#include "base/Text.h"

namespace host {

namespace files = lumarin::files;

namespace {

/// Where a document lies below "Docs", in the folder tree and in its address alike.
std::string PlaceOf(std::int32_t listing, std::int64_t document, const std::string& separator) {
    std::string place;
    for (const std::int32_t digits : {listing / 10, listing})
        place.append(std::to_string(digits % 10)).append(separator);
    return place + std::to_string(listing) + "_" + std::to_string(document) + ".pdf";
}

}  // namespace

DocumentStore::DocumentStore(std::string folder, const std::string& userCode)
    : userCode_(userCode),
      root_(std::move(folder) + userCode + files::Separator + "Docs" + files::Separator) {}

std::string DocumentStore::Path(std::int32_t listing, std::int64_t document) const {
    return root_ + PlaceOf(listing, document, files::Separator);
}

std::string DocumentStore::Address(std::int32_t listing, std::int64_t document) const {
    return "/" + userCode_ + "/Docs/" + PlaceOf(listing, document, "/");
}

void DocumentStore::Add(std::int32_t listing, std::int64_t document, const std::string& upload) const {
    const std::string path = Path(listing, document);
    files::EnsureFolder(lumarin::text::UpToLastSeparator(path));
    files::Copy(upload, path);
}

void DocumentStore::Sweep(Database& database) const {
    std::set<std::filesystem::path> wanted;
    Statement rows(database, "SELECT DocListNum, DocID FROM Documents WHERE ifnull(DocUrl, '') = ''");
    while (rows.Step())
        wanted.insert(files::ToPath(Path(static_cast<std::int32_t>(rows.Integer(0)), rows.Integer(1))));

    std::error_code ignored;
    std::vector<std::filesystem::path> leftovers, folders;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(files::ToPath(root_), ignored))
        if (entry.is_directory(ignored))
            folders.push_back(entry.path());
        else if (!wanted.contains(entry.path()))
            leftovers.push_back(entry.path());
    for (const auto& path : leftovers) std::filesystem::remove(path, ignored);
    // From the innermost outwards; a folder that holds something stays.
    for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder)
        std::filesystem::remove(*folder, ignored);
}

bool IsFileDocument(Database& database, std::int32_t listing, std::int64_t document) {
    Statement row(database, "SELECT 1 FROM Documents WHERE DocID = ? AND DocListNum = ? AND DocUrl = ''");
    return row.Bind(1, document).Bind(2, std::int64_t{listing}).Step();
}

}  // namespace host
