#pragma once

#include <string_view>

namespace host {

/// Whether a browser can open this as a page: an address of http or https, or without a scheme one that a
/// browser's address line takes for an address and not for words to search for. Its end is left to the
/// browser; a user name before the host is refused.
bool IsWebAddress(std::string_view address);

}  // namespace host
