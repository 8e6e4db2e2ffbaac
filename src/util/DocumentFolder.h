#pragma once

#include <string>

#include "entry/VelCommon.h"

namespace lumarin {

/// The folder last used for documents; the user's own folder when that one is not there.
std::string DocumentFolder(const VelCommon& host);

/// Keeps the folder of a chosen file for the next time.
void RememberDocumentFolder(const VelCommon& host, const std::string& path);

/// Whether the file is longer than the five bytes "%PDF-" and begins with them. Throws FileError.
bool IsPdfFile(const std::string& path);

}  // namespace lumarin
