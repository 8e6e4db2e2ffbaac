#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/Files.h"
#include "base/Text.h"
#include "fuzz/Promise.h"
#include "imaging/clsLTDlg.h"
#include "photo_window/ImportSelection.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace lumarin;

/// A folder whose names invite wrong cuts: blanks, extensions within names, other extensions, odd case.
struct PhotoFolder : testing::TemporaryFolder {
    PhotoFolder() {
        for (const char* name :
             {"front.jpg", "a.jpg b.jpg", "b.jpg", "rear view.JPG", "plan.tiff", "my plan.bmp"})
            files::WriteWhole(Path() + name, "x");
    }
    const std::string path = Path().substr(0, Path().size() - 1);
};

/// Everything but what the split may add, drop or write otherwise.
std::string Letters(const std::string& selection) {
    std::string letters = text::LowerAscii(selection);
    std::erase_if(letters, [](char c) { return c == ' ' || c == '\0' || c == '/' || c == '\\'; });
    return letters;
}

void CheckPaths(const std::string& selection) {
    for (const std::string& path : SelectedPaths(selection)) {
        PROMISE(!path.empty());
        const std::string number = ListingNumberOfFile(path);
        PROMISE(number.empty() || (number.size() >= 4 && number.size() <= 6));
        PROMISE(std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; }));
        PROMISE(number.empty() || text::AfterLastSeparator(path).substr(0, number.size() + 1) > number);
    }
}

}  // namespace

/// Whatever a dialog or a drop gives: the split changes nothing but the places between the names, is done
/// once, and every path that comes out is one; and full paths come through as they were.
FUZZ(const std::string& bytes) {
    static const PhotoFolder folder;
    const std::string selection = text::ReplaceAll(bytes, "PHOTOS", folder.path);
    const std::string normalized = clsLTDlg().NormalizeSelection(selection);
    PROMISE(Letters(normalized) == Letters(selection));
    PROMISE(clsLTDlg().NormalizeSelection(normalized) == normalized);
    if (normalized != selection) PROMISE(SelectedPaths(normalized).size() > 1);
    CheckPaths(selection);
    CheckPaths(normalized);

    std::vector<std::string> paths = text::Split(selection, '\0');
    std::erase(paths, "");
    PROMISE(SelectedPaths(AsSelection(paths)) == paths);
}
