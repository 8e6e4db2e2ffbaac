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

bool EndsInSeparator(const std::string& folder) {
    return !folder.empty() && (folder.back() == '/' || folder.back() == '\\');
}

}  // namespace

std::string DocumentFolder(const VelCommon& host) {
    std::string folder = settings::ReadText(UserIni(host), Section, FolderKey, DefaultFolder);
    if (folder == DefaultFolder) folder = files::FixedPath(folder);
    return files::FolderExists(folder) ? folder : host.UserFolder();
}

void RememberDocumentFolder(const VelCommon& host, const std::string& chosen) {
    const std::vector<std::string> paths = ChosenFiles(chosen);
    if (paths.empty()) return;
    const std::string& path = paths.front();
    const std::size_t name = path.size() - text::AfterLastSeparator(path).size();
    if (name > 0) settings::WriteText(UserIni(host), Section, FolderKey, path.substr(0, name));
}

std::vector<std::string> ChosenFiles(const std::string& chosen) {
    if (chosen.empty()) return {};
    std::vector<std::string> parts = text::Split(chosen, '\0');
    if (parts.size() == 1) return parts;
    const std::string folder = parts.front() + (EndsInSeparator(parts.front()) ? "" : files::Separator);
    std::vector<std::string> paths;
    for (std::size_t i = 1; i < parts.size(); ++i)
        if (!parts[i].empty()) paths.push_back(folder + parts[i]);
    return paths;
}

bool IsPdfFile(const std::string& path) {
    files::Reader file(path);
    return file.Length() > PdfHeader.size() && file.Read(PdfHeader.size()) == PdfHeader;
}

}  // namespace lumarin
