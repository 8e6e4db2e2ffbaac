#pragma once

#include <string>
#include <vector>

namespace lumarin {

/// The full paths of a file dialog's result: one path as it is; or, separated by NUL, a folder and the
/// names in it. With an empty folder the names are full paths already (dropped files).
std::vector<std::string> SelectedPaths(const std::string& selection);

/// Dropped files as one text of that form: every full path preceded by a NUL.
std::string AsSelection(const std::vector<std::string>& paths);

/// The listing number at the start of a file's name: 4 to 6 digits with at least one character behind
/// them. "" for any other name.
std::string ListingNumberOfFile(const std::string& path);

}  // namespace lumarin
