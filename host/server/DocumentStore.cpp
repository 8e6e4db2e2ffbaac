#include "host/server/DocumentStore.h"

#include <filesystem>
#include <set>
#include <vector>

#include "base/Files.h"

namespace host {

namespace files = lumarin::files;

DocumentStore::DocumentStore(std::string folder, const std::string& userCode)
    : root_(std::move(folder) + userCode + files::Separator + "Docs" + files::Separator) {}

std::string DocumentStore::Path(std::int32_t listing, std::int64_t document) const {
    std::string path = root_;
    for (const std::int32_t digits : {listing / 10, listing})
        path.append(std::to_string(digits % 10)).append(files::Separator);
    return path + std::to_string(listing) + "_" + std::to_string(document) + ".pdf";
}

void DocumentStore::Add(std::int32_t listing, std::int64_t document, const std::string& upload) const {
    const std::string path = Path(listing, document);
    files::EnsureFolder(path.substr(0, path.rfind(files::Separator) + 1));
    files::Copy(upload, path);
}

void DocumentStore::Sweep(Database& database) const {
    std::set<std::string> wanted;
    Statement rows(database, "SELECT DocListNum, DocID FROM Documents WHERE ifnull(DocUrl, '') = ''");
    while (rows.Step()) wanted.insert(Path(static_cast<std::int32_t>(rows.Integer(0)), rows.Integer(1)));

    std::error_code ignored;
    std::vector<std::string> leftovers;
    std::vector<std::filesystem::path> folders;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root_, ignored))
        if (entry.is_directory(ignored))
            folders.push_back(entry.path());
        else if (!wanted.contains(entry.path().string()))
            leftovers.push_back(entry.path().string());
    for (const std::string& path : leftovers) files::TryDelete(path);
    // From the innermost outwards; a folder that holds something stays.
    for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder)
        std::filesystem::remove(*folder, ignored);
}

}  // namespace host
