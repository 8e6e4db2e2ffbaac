#include "automation/ports/HostWindow.h"

namespace lumarin::automation {

std::uintptr_t HostWindow::SystemWindow() const {
    try {
        const auto window = reinterpret_cast<HWND>(LargeIntegerOf(form_.Get(L"hWnd").Get()));
        if (IsWindow(window)) return reinterpret_cast<std::uintptr_t>(window);
    } catch (const Error&) {  // it has no window to tell of
    }
    const HWND active = GetActiveWindow();
    return reinterpret_cast<std::uintptr_t>(active != nullptr ? GetAncestor(active, GA_ROOTOWNER) : nullptr);
}

int HostWindow::Switch() const { return IntegerOf(form_.Get(L"Switch").Get()); }

void HostWindow::Prog(int first, int second) {
    form_.Call(L"Prog", {Variant(std::int32_t{first}), Variant(std::int32_t{second})});
}

std::int32_t HostWindow::SelectedListing() const {
    try {
        return IntegerOf(form_.Get(L"SelectedListing").Get());
    } catch (const MissingMember&) {
        return 0;
    }
}

std::int32_t HostWindow::TakeListing() {
    try {
        return IntegerOf(form_.Get(L"TakeListing").Get());
    } catch (const MissingMember&) {
        return 0;
    }
}

}  // namespace lumarin::automation
