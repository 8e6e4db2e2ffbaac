#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "documents/clsDoc.h"
#include "entry/VelCommon.h"

namespace lumarin {

/// Where the browser finds a document: the address of a link, or the uploaded file's place on the server,
/// which has no scheme and "\" between its parts.
std::string PreviewAddress(const VelCommon& host, std::int32_t listing, const clsDoc& document);

/// Whether the address names a scheme other than http and https ("file:", "javascript:"). A server with
/// a port ("www.x.y:8080") names none.
bool HasOtherScheme(std::string_view address);

}  // namespace lumarin
