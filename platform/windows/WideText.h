#pragma once

#include <string>
#include <string_view>

#include "base/Text.h"

/// Texts as the platform's functions of wide characters take and give them.
namespace lumarin::windows {

inline std::wstring ToWide(std::string_view utf8) {
    const std::u16string units = text::ToUtf16(utf8);
    return {units.begin(), units.end()};
}

inline std::string FromWide(std::wstring_view wide) {
    return text::FromUtf16(std::u16string(wide.begin(), wide.end()));
}

}  // namespace lumarin::windows
