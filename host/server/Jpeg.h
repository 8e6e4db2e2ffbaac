#pragma once

#include <string_view>

namespace host {

/// Whether these bytes are a JPEG picture from its first marker to its last: the segments before the
/// picture data fit together and an end marker follows the data. Bytes behind the end are allowed, as
/// cameras write them. The picture data is not decoded.
bool IsWholeJpeg(std::string_view bytes);

}  // namespace host
