#pragma once

#include <string>
#include <vector>

namespace lumarin {

/// The full paths of a selection, the one text that every import is given: one path as it is; or, separated
/// by NUL, a folder and the names in it, which are full paths already where the folder is empty; or a folder
/// and names with blanks between them, see `clsLTDlg`.
std::vector<std::string> SelectedPaths(const std::string& selection);

/// Chosen, dropped or copied files as a selection: every full path preceded by a NUL.
std::string AsSelection(const std::vector<std::string>& paths);

/// The listing number at the start of a file's name: 4 to 6 digits with at least one character behind
/// them. "" for any other name.
std::string ListingNumberOfFile(const std::string& path);

}  // namespace lumarin
