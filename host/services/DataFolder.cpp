#include "host/services/DataFolder.h"

#include <filesystem>

#include "base/Error.h"
#include "base/FileSystem.h"
#include "base/Files.h"

namespace host {

namespace files = lumarin::files;

namespace {

constexpr const char* DefaultSettings =
    "[Lumarin]\r\n"
    "Photo Size=480,300,35,35000,4\r\n"
    "FilePreview=True\r\n"
    "Photo Maximum=10\r\n"
    "SortNames=0\r\n"
    "DocMaxSize=8000\r\n";

/// A link that leads nowhere is left alone: what it leads to may only be away.
void WriteMissing(const std::string& path, const char* bytes) {
    if (!files::FileExists(path) && !std::filesystem::is_symlink(files::ToPath(path)))
        files::WriteWhole(path, bytes);
}

}  // namespace

std::string PrepareDataFolder(const std::string& folder) {
    if (folder.empty())
        throw lumarin::Error(lumarin::ApplicationErrorNumber, "host", "The data folder has no name");
    std::string root = folder.ends_with(files::Separator) ? folder : folder + files::Separator;
    for (const char* name : {"user", "program", "photos"}) files::EnsureFolder(root + name);
    // An entry in this folder says that rentals are in use.
    const std::string rentals = root + files::FixedPath("city\\Users\\Default\\Rental\\");
    files::EnsureFolder(rentals);
    WriteMissing(rentals + "Rental.ini", "[Rental]\r\n");
    WriteMissing(root + files::FixedPath("city\\CityInfo.ini"), DefaultSettings);
    return root;
}

}  // namespace host
