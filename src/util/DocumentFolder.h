#pragma once

#include <string>
#include <vector>

#include "entry/VelCommon.h"

namespace lumarin {

/// The folder last used for documents; the user's own folder when that one is not there.
std::string DocumentFolder(const VelCommon& host);

/// Keeps the folder of a file dialog's result for the next time.
void RememberDocumentFolder(const VelCommon& host, const std::string& chosen);

/// Full paths of a file dialog's result: one path, or a folder and the names in it, separated by NUL.
std::vector<std::string> ChosenFiles(const std::string& chosen);

/// Whether the file is longer than the five bytes "%PDF-" and begins with them. Throws FileError.
bool IsPdfFile(const std::string& path);

}  // namespace lumarin
