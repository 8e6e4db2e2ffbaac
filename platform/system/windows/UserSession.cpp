#include "platform/system/UserSession.h"

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include <cstdio>
#include <memory>

#include "base/FileSystem.h"

namespace lumarin::platform {

namespace {

std::string KnownFolder(REFKNOWNFOLDERID folder) {
    wchar_t* path = nullptr;
    const HRESULT found = SHGetKnownFolderPath(folder, KF_FLAG_DEFAULT, nullptr, &path);
    const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> owner(path, &CoTaskMemFree);
    return SUCCEEDED(found) ? files::ToUtf8(path) : "";
}

}  // namespace

std::vector<std::string> ProgramArguments(int, char**) {
    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> values(
        CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(files::ToUtf8(values.get()[i]));
    return arguments;
}

void SpeakToConsole() {
    const auto leadsNowhere = [](DWORD stream) {
        const HANDLE handle = GetStdHandle(stream);
        return handle == nullptr || handle == INVALID_HANDLE_VALUE;
    };
    const bool output = leadsNowhere(STD_OUTPUT_HANDLE), errors = leadsNowhere(STD_ERROR_HANDLE);
    if ((!output && !errors) || !AttachConsole(ATTACH_PARENT_PROCESS)) return;
    if (output) std::freopen("CONOUT$", "w", stdout);
    if (errors) std::freopen("CONOUT$", "w", stderr);
}

std::string UserDataFolder() { return KnownFolder(FOLDERID_LocalAppData); }

bool HasDisplay() { return true; }

std::string FontFolder() { return KnownFolder(FOLDERID_Fonts); }

}  // namespace lumarin::platform
