#include "platform/windows/pdf/CodePageText.h"

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string_view>

#include "base/Error.h"
#include "base/FileSystem.h"
#include "base/Text.h"
#include "platform/windows/WideText.h"

namespace lumarin::windows {

namespace {

std::string Narrow(const std::wstring& wide) {
    const int length = static_cast<int>(wide.size());
    std::string narrow(WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, nullptr),
                       '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), length, narrow.data(), static_cast<int>(narrow.size()),
                        nullptr, nullptr);
    return narrow;
}

std::wstring Widen(const std::string& narrow) {
    const int length = static_cast<int>(narrow.size());
    std::wstring wide(MultiByteToWideChar(CP_ACP, 0, narrow.data(), length, nullptr, 0), L'\0');
    MultiByteToWideChar(CP_ACP, 0, narrow.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

/// Nothing when the code page would make another path of it, a letter it lacks may turn into one alike, or
/// when functions with narrow texts do not take one of that length.
std::optional<std::string> Exactly(const std::filesystem::path& path) {
    const std::string narrow = Narrow(path.native());
    if (narrow.size() >= MAX_PATH) return std::nullopt;
    return Widen(narrow) == path.native() ? std::optional(narrow) : std::nullopt;
}

/// The short names of the whole folder, without the mark of a long path.
std::filesystem::path ShortNames(const std::filesystem::path& folder) {
    constexpr std::wstring_view LongMark = L"\\\\?\\", LongShareMark = L"\\\\?\\UNC\\";
    std::wstring names(GetShortPathNameW(folder.c_str(), nullptr, 0), L'\0');
    names.resize(GetShortPathNameW(folder.c_str(), names.data(), static_cast<DWORD>(names.size())));
    if (names.starts_with(LongShareMark)) return names.replace(0, LongShareMark.size(), L"\\\\");
    return names.starts_with(LongMark) ? names.substr(LongMark.size()) : names;
}

}  // namespace

std::string ToProcessCodePage(const std::string& utf8) {
    const std::u16string wide = text::ToUtf16(utf8);
    return Narrow({wide.begin(), wide.end()});
}

std::string ToProcessCodePagePath(const std::string& utf8) {
    const std::filesystem::path path = ToWide(files::Absolute(utf8));
    if (const auto exact = Exactly(path)) return *exact;
    const std::filesystem::path folder = files::ToPath(files::ToUtf8(path.parent_path()));
    if (const auto exact = Exactly(ShortNames(folder) / path.filename())) return *exact;
    throw ApplicationError("QorCreatePdf",
                           "The PDF library cannot be given the path \"" + utf8 +
                               "\": it is too long, or has letters that are not in the code page of this "
                               "computer, and no short name.");
}

}  // namespace lumarin::windows
