#include "platform/windows/ProfileSettings.h"

#include <windows.h>

#include "base/FileSystem.h"
#include "entry/SettingsText.h"
#include "platform/windows/WideText.h"

namespace lumarin::windows {

namespace {

constexpr DWORD BufferLength = 250;  // with the end of the text

std::wstring WidePath(const std::string& file) { return files::ToPath(file).make_preferred().wstring(); }

}  // namespace

std::string ProfileSettings::ReadText(const std::string& file, const std::string& section,
                                      const std::string& key, const std::string& fallback) const {
    wchar_t value[BufferLength];
    const DWORD length =
        GetPrivateProfileStringW(ToWide(section).c_str(), ToWide(key).c_str(), ToWide(fallback).c_str(),
                                 value, BufferLength, WidePath(file).c_str());
    return FromWide({value, length});
}

std::int32_t ProfileSettings::ReadInteger(const std::string& file, const std::string& section,
                                          const std::string& key, std::int32_t fallback) const {
    return static_cast<std::int32_t>(GetPrivateProfileIntW(ToWide(section).c_str(), ToWide(key).c_str(),
                                                           fallback, WidePath(file).c_str()));
}

bool ProfileSettings::WriteText(const std::string& file, const std::string& section, const std::string& key,
                                const std::string& value) const noexcept {
    try {
        return WritePrivateProfileStringW(ToWide(section).c_str(), ToWide(key).c_str(),
                                          ToWide(settings::OneLine(value)).c_str(),
                                          WidePath(file).c_str()) != FALSE;
    } catch (...) {
        return false;
    }
}

}  // namespace lumarin::windows
