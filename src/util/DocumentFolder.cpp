#include "util/DocumentFolder.h"

#include "base/Files.h"
#include "base/Text.h"
#include "entry/Settings.h"

namespace lumarin {

namespace {

constexpr const char* Section = "Lumarin";
constexpr const char* FolderKey = "DocDir";
constexpr const char* DefaultFolder = "\\My Documents";
constexpr std::string_view PdfHeader = "%PDF-";

std::string UserIni(const VelCommon& host) { return host.UserFolder() + "User.ini"; }

}  // namespace

std::string DocumentFolder(const VelCommon& host) {
    std::string folder = settings::ReadText(UserIni(host), Section, FolderKey, DefaultFolder);
    if (folder == DefaultFolder) folder = files::FixedPath(folder);
    return files::FolderExists(folder) ? folder : host.UserFolder();
}

void RememberDocumentFolder(const VelCommon& host, const std::string& path) {
    const std::string folder = text::UpToLastSeparator(path);
    if (!folder.empty()) settings::WriteText(UserIni(host), Section, FolderKey, folder);
}

bool IsPdfFile(const std::string& path) {
    files::Reader file(path);
    return file.Length() > PdfHeader.size() && file.Read(PdfHeader.size()) == PdfHeader;
}

}  // namespace lumarin
