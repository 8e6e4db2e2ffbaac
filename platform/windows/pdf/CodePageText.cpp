#include "platform/windows/pdf/CodePageText.h"

#include <windows.h>

#include <filesystem>
#include <optional>

#include "base/Error.h"
#include "base/FileSystem.h"
#include "base/Text.h"

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

/// Nothing when the code page would make another path of it: a letter it lacks may turn into one alike.
std::optional<std::string> Exactly(const std::filesystem::path& path) {
    const std::string narrow = Narrow(path.native());
    return Widen(narrow) == path.native() ? std::optional(narrow) : std::nullopt;
}

std::filesystem::path ShortNames(const std::filesystem::path& folder) {
    std::wstring names(GetShortPathNameW(folder.c_str(), nullptr, 0), L'\0');
    names.resize(GetShortPathNameW(folder.c_str(), names.data(), static_cast<DWORD>(names.size())));
    return names;
}

}  // namespace

std::string ToProcessCodePage(const std::string& utf8) {
    const std::u16string wide = text::ToUtf16(utf8);
    return Narrow({wide.begin(), wide.end()});
}

std::string ToProcessCodePagePath(const std::string& utf8) {
    const std::filesystem::path path = files::ToPath(utf8).make_preferred();
    if (const auto exact = Exactly(path)) return *exact;
    if (const auto exact = Exactly(ShortNames(path.parent_path()) / path.filename())) return *exact;
    throw ApplicationError("QorCreatePdf",
                           "The PDF library cannot be given the path \"" + utf8 +
                               "\": it has letters that are not in the code page of this computer, "
                               "and no short name.");
}

}  // namespace lumarin::windows
