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

Native Separators(int count) { return Native(static_cast<std::size_t>(count), Unit{'\\'}); }

/// Names a share of another machine; the standard library does not know those.
bool IsOnShare(const Native& path) { return !IsUtf8 && path.starts_with(Separators(2)); }

/// Without "." and "..", and with one separator between two names.
template <class Path>
Native Normal(Path path) {
    const Native text = path.make_preferred().native();
    if (!IsOnShare(text)) return path.lexically_normal().native();
    return Separators(2) + Path(text.substr(2)).lexically_normal().native();
}

/// The form of a whole path that the system takes as it stands: neither limited nor interpreted.
template <class Path>
Path InLongForm(const Path& path) {
    const auto of = [](std::string_view text) { return Native(text.begin(), text.end()); };
    const Native text = Path(path).make_preferred().native();
    for (const std::string_view taken : {"\\\\?\\", "\\\\.\\"})
        if (text.starts_with(of(taken))) return text;
    return IsOnShare(text) ? of("\\\\?\\UNC\\") + Normal(path).substr(2) : of("\\\\?\\") + Normal(path);
}

template <class Path>
Path Usual(std::string_view utf8) {
    if constexpr (IsUtf8) {
        return utf8;
    } else {
        const std::u16string units = text::ToUtf16(utf8);
        return Native(units.begin(), units.end());
    }
}

template <class Path>
Path Converted(std::string_view utf8) {
    Path path = Usual<Path>(utf8);
    if constexpr (!IsUtf8) {
        const bool isWhole = path.is_absolute() || IsOnShare(Path(path).make_preferred().native());
        if (isWhole && path.native().size() > LongestUsualPath) return InLongForm(path);
    }
    return path;
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

std::string Absolute(std::string_view utf8) {
    std::filesystem::path path = Usual<std::filesystem::path>(utf8);
    if (!IsOnShare(std::filesystem::path(path).make_preferred().native()))
        path = std::filesystem::absolute(path);
    return Converted(std::filesystem::path(Normal(path)));
}

std::string LastReason() { return Calls().LastReason(); }

}  // namespace lumarin::files
