// bench_first_window FOLDER: prints the milliseconds from the creation of the component's class to its photo
// window on the screen, in a process without a toolkit. Makes the data folder when it is not there.

#include <windows.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <string>

#include "host/automation/ComponentLibrary.h"
#include "host/automation/VelCommonObject.h"
#include "host/services/DataFolder.h"
#include "host/services/HostVelCommon.h"

namespace {

namespace automation = lumarin::automation;

class MainForm final : public lumarin::HostMainForm {
public:
    void* NativeWindow() const override { return nullptr; }
    int Switch() const override { return 0; }
    void Prog(int, int) override {}
};

/// Until it is shown and nothing of it waits to be painted.
void WaitForWindow() {
    for (MSG message;;) {
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
            continue;
        }
        const HWND window = FindWindowW(nullptr, L"Listing Photos");
        if (window != nullptr && IsWindowVisible(window) && !GetUpdateRect(window, nullptr, FALSE)) return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 1, QS_ALLINPUT);
    }
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    OleInitialize(nullptr);
    try {
        const std::string folder = std::string(arguments[1]) + "/";
        host::PrepareDataFolder(folder);
        MainForm form;
        host::HostVelCommon common({.dataFolder = folder}, form, nullptr);
        const auto services =
            automation::MakeObject<host::VelCommonObject>(common, [] { return std::intptr_t{0}; });
        const auto tool = automation::MakeObject<host::ToolObject>([] { return true; }, [](bool) {});

        const auto start = std::chrono::steady_clock::now();
        const host::ComponentLibrary library;
        const automation::Object job = library.NewClass();
        job.Call(L"Start", {automation::Variant(services.Get()), automation::Variant(std::int32_t{1}),
                            automation::Variant(tool.Get())});
        WaitForWindow();
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        job.Call(L"UnloadObj");
        std::printf("%.0f\n", taken.count());
        return 0;
    } catch (const std::exception& error) {
        return std::fprintf(stderr, "bench_first_window: %s\n", error.what()), 2;
    }
}
