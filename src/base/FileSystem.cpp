#include "base/FileSystem.h"

#include <algorithm>
#include <type_traits>

#include "base/FileCalls.h"
#include "base/Text.h"

namespace lumarin::files {

namespace {

using Unit = std::filesystem::path::value_type;
using Native = std::filesystem::path::string_type;
constexpr bool IsUtf8 = std::is_same_v<Unit, char>;

// A folder's name may have 248 characters there; the names that stand beside a file for a while are longer
// than its own.
constexpr std::size_t LongestUsualPath = 230;

/// The form of a whole path that the system takes as it stands: neither limited nor interpreted.
template <class Path>
Path InLongForm(const Path& path) {
    const auto of = [](std::string_view text) { return Native(text.begin(), text.end()); };
    const Native text = Path(path).make_preferred().lexically_normal().native();
    const bool isShare = text.starts_with(of("\\\\"));
    if (text.starts_with(of("\\\\?\\")) || text.starts_with(of("\\\\.\\"))) return text;
    return isShare ? of("\\\\?\\UNC\\") + text.substr(2) : of("\\\\?\\") + text;
}

template <class Path>
Path Converted(std::string_view utf8) {
    if constexpr (IsUtf8) {
        return utf8;
    } else {
        const std::u16string units = text::ToUtf16(utf8);
        const Path path = Native(units.begin(), units.end());
        return units.size() > LongestUsualPath && path.is_absolute() ? InLongForm(path) : path;
    }
}

template <class Path>
std::string Converted(const Path& path) {
    if constexpr (IsUtf8)
        return path.native();
    else
        return text::FromUtf16(std::u16string(path.native().begin(), path.native().end()));
}

}  // namespace

std::filesystem::path ToPath(std::string_view utf8) { return Converted<std::filesystem::path>(utf8); }

std::string ToUtf8(const std::filesystem::path& path) { return Converted(path); }

std::string LastReason() { return Calls().LastReason(); }

}  // namespace lumarin::files
