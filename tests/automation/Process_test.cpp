#include <QorLumarin.h>
#include <psapi.h>

#include <clocale>

#include "automation/TestHost.h"

namespace lumarin::automation {

namespace {

/// What of the process a library has no business to change.
std::vector<std::wstring> Settings() {
    wchar_t folder[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, folder);
    std::vector<std::wstring> settings{folder, std::to_wstring(GetACP()), std::to_wstring(GetErrorMode()),
                                       std::to_wstring(GetThreadLocale()),
                                       std::to_wstring(IsProcessDPIAware())};
    const LPTOP_LEVEL_EXCEPTION_FILTER filter = SetUnhandledExceptionFilter(nullptr);
    SetUnhandledExceptionFilter(filter);
    settings.push_back(std::to_wstring(reinterpret_cast<std::uintptr_t>(filter)));
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    settings.emplace_back(locale.begin(), locale.end());
    wchar_t* const environment = GetEnvironmentStringsW();
    for (const wchar_t* entry = environment; *entry != L'\0'; entry += std::wcslen(entry) + 1)
        settings.emplace_back(entry);
    FreeEnvironmentStringsW(environment);
    return settings;
}

struct Holdings {
    SIZE_T memory;
    DWORD handles, windows, drawing;
};

Holdings Held() {
    PROCESS_MEMORY_COUNTERS_EX counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                         sizeof counters);
    DWORD handles = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    return {counters.PrivateUsage, handles, GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS),
            GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)};
}

}  // namespace

TEST_F(TestHost, Process_AfterAJob_IsAsItWasAndKeepsTheLibrary) {
    const std::vector<std::wstring> before = Settings();
    const auto job = NewClass();
    ASSERT_EQ(Start(*job.Get()), S_OK);
    EXPECT_EQ(Settings(), before);
    EXPECT_EQ(job->UnloadObj(), S_OK);
    EXPECT_EQ(Settings(), before);
    const HMODULE library = GetModuleHandleW(L"QorLumarin.dll");
    const auto canUnload = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")));
    EXPECT_EQ(canUnload(), S_FALSE);
    while (FreeLibrary(library) && GetModuleHandleW(L"QorLumarin.dll") != nullptr && !HasFailure())
        if (static int frees = 0; ++frees > 50) break;
    EXPECT_EQ(GetModuleHandleW(L"QorLumarin.dll"), library);
}

TEST_F(TestHost, Jobs_FiveHundredStartsAndEnds_HoldNoMore) {
    constexpr int WarmUp = 50, Times = 500;
    Holdings before{};
    for (int time = 0; time < Times; ++time) {
        if (time == WarmUp) before = Held();
        const auto job = NewClass();
        ASSERT_EQ(Start(*job.Get()), S_OK);
        ASSERT_EQ(job->UnloadObj(), S_OK);
        Until([&] { return Seen(PhotoWindow) == nullptr; });
    }
    const Holdings after = Held();
    EXPECT_LT(after.memory, before.memory + (4U << 20));
    EXPECT_LE(after.handles, before.handles + 8);
    EXPECT_LE(after.windows, before.windows + 8);
    EXPECT_LE(after.drawing, before.drawing + 8);
}

}  // namespace lumarin::automation
