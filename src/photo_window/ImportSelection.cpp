#include "photo_window/ImportSelection.h"

#include "base/Files.h"
#include "base/Text.h"
#include "imaging/clsLTDlg.h"

namespace lumarin {

namespace {

constexpr std::size_t FewestDigits = 4;
constexpr std::size_t MostDigits = 6;

std::string Joined(const std::string& folder, const std::string& name) {
    if (folder.empty()) return name;
    const char last = folder.back();
    return last == '/' || last == '\\' ? folder + name : folder + files::Separator + name;
}

}  // namespace

std::vector<std::string> SelectedPaths(const std::string& selection) {
    if (selection.empty()) return {};
    std::vector<std::string> parts = text::Split(clsLTDlg().NormalizeSelection(selection), '\0');
    if (parts.size() == 1) return parts;
    std::vector<std::string> paths;
    for (std::size_t i = 1; i < parts.size(); ++i)
        if (!parts[i].empty()) paths.push_back(Joined(parts.front(), parts[i]));
    return paths;
}

std::string AsSelection(const std::vector<std::string>& paths) {
    std::string selection;
    for (const std::string& path : paths) selection += '\0' + path;
    return selection;
}

std::string ListingNumberOfFile(const std::string& path) {
    const std::string name = text::AfterLastSeparator(path);
    std::size_t digits = 0;
    while (digits < name.size() && name[digits] >= '0' && name[digits] <= '9') ++digits;
    if (digits < FewestDigits || digits > MostDigits || digits == name.size()) return {};
    return name.substr(0, digits);
}

}  // namespace lumarin
