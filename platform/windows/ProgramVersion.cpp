#include "platform/windows/ProgramVersion.h"

#include <windows.h>

#include <algorithm>
#include <vector>

#include "platform/windows/WideText.h"

namespace lumarin::windows {

namespace {

constexpr UINT LongestFolder = 255;
constexpr DWORD LongestResource = 64000;

}  // namespace

std::string ProgramVersion::SystemFolder() const {
    wchar_t folder[LongestFolder];
    const UINT length = GetSystemDirectoryW(folder, LongestFolder);
    return length < LongestFolder ? FromWide({folder, length}) : std::string();
}

bool ProgramVersion::FileVersion(const std::string& path, Version& version) const {
    const std::wstring file = ToWide(path);
    DWORD unused = 0;
    std::vector<std::byte> resource(
        std::min(GetFileVersionInfoSizeW(file.c_str(), &unused), LongestResource));
    if (resource.empty() ||
        !GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(resource.size()), resource.data()))
        return false;
    void* block = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(resource.data(), L"\\", &block, &length) || length < sizeof(VS_FIXEDFILEINFO))
        return false;
    const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(block);
    version = {static_cast<std::int32_t>(fixed.dwFileVersionMS),
               static_cast<std::int32_t>(fixed.dwFileVersionLS)};
    return true;
}

}  // namespace lumarin::windows
