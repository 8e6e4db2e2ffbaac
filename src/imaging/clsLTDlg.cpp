#include "imaging/clsLTDlg.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Text.h"

namespace lumarin {

namespace {

constexpr std::string_view PictureExtensions[] = {".jpg",  ".jpeg", ".jif",  ".jfif", ".png", ".tif",
                                                  ".tiff", ".webp", ".heic", ".heif", ".gif"};
constexpr std::size_t LongestFileName = 1024;  // bytes; more than any file system takes

bool EndsAsPicture(std::string_view name) {
    return std::any_of(
        std::begin(PictureExtensions), std::end(PictureExtensions),
        [&](std::string_view extension) { return text::EndsWithIgnoringCase(name, extension); });
}

/// Where a name can end: at the blanks that `isEnd` accepts (it is given what stands before), and at the end.
template <class IsEnd>
std::vector<std::size_t> NameEnds(std::string_view names, IsEnd isEnd) {
    std::vector<std::size_t> ends;
    for (std::size_t blank = names.find(' '); blank != std::string_view::npos;
         blank = names.find(' ', blank + 1))
        if (isEnd(names.substr(0, blank))) ends.push_back(blank);
    ends.push_back(names.size());
    return ends;
}

std::size_t SkipBlanks(std::string_view names, std::size_t from) {
    return std::min(names.find_first_not_of(' ', from), names.size());
}

using Names = std::vector<std::string>;

/// The entries of one folder, found by name regardless of case.
class FolderNames {
public:
    explicit FolderNames(const std::string& folder) {
        files::ForEachEntry(folder, [this](std::string_view name, files::EntryKind) {
            longest_ = std::max(longest_, name.size());
            exact_.emplace(name);
            anyCase_.emplace(text::LowerAscii(name), name);
        });
    }

    /// Takes the whole text apart into names that are in the folder, each as short as the rest allows.
    std::optional<Names> Split(std::string_view names, const std::vector<std::size_t>& ends) const {
        // From the back: for each place where a name can start, the end from which the rest works out.
        std::unordered_map<std::size_t, std::size_t> endOf;
        const auto worksFrom = [&](std::size_t start) {
            return start == names.size() || endOf.contains(start);
        };
        std::vector<std::size_t> starts{SkipBlanks(names, 0)};
        for (const std::size_t end : ends) starts.push_back(SkipBlanks(names, end));
        for (auto start = starts.rbegin(); start != starts.rend(); ++start) {
            for (auto end = std::upper_bound(ends.begin(), ends.end(), *start); end != ends.end(); ++end) {
                if (*end - *start > longest_) break;
                if (!worksFrom(SkipBlanks(names, *end)) || !Find(names.substr(*start, *end - *start)))
                    continue;
                endOf[*start] = *end;
                break;
            }
        }
        if (!worksFrom(starts.front())) return std::nullopt;
        Names found;
        for (std::size_t start = starts.front(); start < names.size();
             start = SkipBlanks(names, endOf[start]))
            found.push_back(*Find(names.substr(start, endOf[start] - start)));
        return found;
    }

private:
    const std::string* Find(std::string_view name) const {
        if (const auto same = exact_.find(std::string(name)); same != exact_.end()) return &*same;
        const auto like = anyCase_.find(text::LowerAscii(name));
        return like == anyCase_.end() ? nullptr : &like->second;
    }

    std::size_t longest_ = 0;
    std::unordered_set<std::string> exact_;
    std::unordered_map<std::string, std::string> anyCase_;
};

bool IsSeparator(char character) { return character == '\\' || character == '/'; }

/// First place at which the folder may end: after the last separator, but never within the server and
/// share of a network path.
std::size_t FolderEnd(std::string_view selection) {
    const std::size_t end = text::UpToLastSeparator(selection).size();
    if (!selection.starts_with("\\\\")) return end;
    const std::size_t afterServer = std::min(selection.find_first_of("/\\", 2), selection.size());
    if (end > afterServer + 1) return end;
    return std::min(selection.find(' ', afterServer), selection.size());
}

std::string Join(std::string_view folder, const Names& names) {
    const auto isRoot = [&] { return folder.size() == 1 || folder[folder.size() - 2] == ':'; };
    while (!folder.empty() && IsSeparator(folder.back()) && !isRoot()) folder.remove_suffix(1);
    std::string joined(folder);
    for (const std::string& name : names) joined.append(1, '\0').append(name);
    return joined;
}

/// The text taken apart as the file system knows it; nothing when it knows no such folder and names.
std::optional<std::string> SplitAsStored(std::string_view selection, std::size_t folderEnd) {
    // The folder ends at its last separator, or it stands without one and ends at a later blank.
    for (std::size_t end = folderEnd; end < selection.size() && end - folderEnd <= LongestFileName;
         end = std::min(selection.find(' ', end + 1), selection.size())) {
        const std::string folder(selection.substr(0, end));
        if (folder.empty() || !files::FolderExists(folder)) continue;
        const std::string_view names = selection.substr(end);
        const FolderNames stored(folder);
        auto split = stored.Split(names, NameEnds(names, EndsAsPicture));
        if (!split) split = stored.Split(names, NameEnds(names, [](std::string_view) { return true; }));
        if (split) return split->size() > 1 ? Join(folder, *split) : std::string(selection);
    }
    return std::nullopt;
}

std::string SplitAsWritten(std::string_view selection, std::size_t folderEnd) {
    const std::string_view names = selection.substr(folderEnd);
    Names split;
    std::size_t start = SkipBlanks(names, 0);
    for (const std::size_t end : NameEnds(names, EndsAsPicture)) {
        if (end <= start) continue;
        split.emplace_back(names.substr(start, end - start));
        start = SkipBlanks(names, end);
    }
    return split.size() > 1 ? Join(selection.substr(0, folderEnd), split) : std::string(selection);
}

}  // namespace

std::string clsLTDlg::NormalizeSelection(const std::string& selection) const {
    const bool isReadyMade = selection.find('\0') != std::string::npos;
    const bool isSeveral = NameEnds(selection, EndsAsPicture).size() > 1;
    if (isReadyMade || !isSeveral || files::FileExists(selection)) return selection;
    const std::size_t folderEnd = FolderEnd(selection);
    std::optional<std::string> stored;
    try {
        stored = SplitAsStored(selection, folderEnd);
    } catch (const FileError&) {  // a folder that may not be listed: go by the text
    }
    return stored ? *stored : SplitAsWritten(selection, folderEnd);
}

}  // namespace lumarin
