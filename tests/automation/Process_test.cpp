#include <QorLumarin.h>
#include <psapi.h>

#include <algorithm>
#include <clocale>
#include <iterator>
#include <set>

#include "automation/TestHost.h"

namespace lumarin::automation {

namespace {

/// What of the process a library has no business to change.
std::set<std::wstring> Settings() {
    wchar_t folder[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, folder);
    std::set<std::wstring> settings{folder, L"code page " + std::to_wstring(GetACP()),
                                    L"error mode " + std::to_wstring(GetErrorMode()),
                                    L"locale " + std::to_wstring(GetThreadLocale()),
                                    L"scales itself " + std::to_wstring(IsProcessDPIAware())};
    const LPTOP_LEVEL_EXCEPTION_FILTER filter = SetUnhandledExceptionFilter(nullptr);
    SetUnhandledExceptionFilter(filter);
    settings.insert(L"filter " + std::to_wstring(reinterpret_cast<std::uintptr_t>(filter)));
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    settings.emplace(locale.begin(), locale.end());
    wchar_t* const environment = GetEnvironmentStringsW();
    for (const wchar_t* entry = environment; *entry != L'\0'; entry += std::wcslen(entry) + 1)
        if (std::wcsncmp(entry, L"VKD3D_", 6) != 0) settings.insert(entry);  // Wine sets these itself
    FreeEnvironmentStringsW(environment);
    return settings;
}

/// Those before the first test, and so before the library was loaded.
std::set<std::wstring> atStart;

struct RememberStart final : ::testing::Environment {
    void SetUp() override { atStart = Settings(); }
};
const ::testing::Environment* const Remembered = ::testing::AddGlobalTestEnvironment(new RememberStart);

/// What is so now and was not then, or the other way round.
std::set<std::wstring> Changed() {
    const std::set<std::wstring> now = Settings();
    std::set<std::wstring> changed;
    std::set_symmetric_difference(now.begin(), now.end(), atStart.begin(), atStart.end(),
                                  std::inserter(changed, changed.end()));
    return changed;
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
    const auto job = NewClass();
    ASSERT_EQ(Start(*job.Get()), S_OK);
    EXPECT_EQ(Changed(), std::set<std::wstring>());
    EXPECT_EQ(job->UnloadObj(), S_OK);
    EXPECT_EQ(Changed(), std::set<std::wstring>());
    const HMODULE library = GetModuleHandleW(L"QorLumarin.dll");
    const auto canUnload = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")));
    EXPECT_EQ(canUnload(), S_FALSE);
    while (FreeLibrary(library) && GetModuleHandleW(L"QorLumarin.dll") != nullptr && !HasFailure())
        if (static int frees = 0; ++frees > 50) break;
    EXPECT_EQ(GetModuleHandleW(L"QorLumarin.dll"), library);
}

TEST_F(TestHost, HostWindow_GoneBeforeTheJob_JobEndsAllTheSame) {
    const auto job = NewClass();
    ASSERT_EQ(Start(*job.Get()), S_OK);
    DestroyWindow(window);
    EXPECT_TRUE(Until([&] { return Seen(PhotoWindow) == nullptr; }));
    EXPECT_EQ(job->UnloadObj(), S_OK);
    EXPECT_TRUE(toolEnabled);
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
