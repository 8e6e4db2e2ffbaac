#include "platform/windows/CompiledHelp.h"

#include <windows.h>

#include <htmlhelp.h>

#include "base/Error.h"
#include "base/Text.h"
#include "platform/windows/WideText.h"

namespace lumarin::windows {

namespace {

constexpr const char* Operation = "open the help file";

using HtmlHelpFunction = decltype(&::HtmlHelpW);

/// Null where the system has no viewer. It stays loaded: its windows live on after the call.
HtmlHelpFunction Viewer() {
    static const HMODULE library = LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return library == nullptr ? nullptr
                              : reinterpret_cast<HtmlHelpFunction>(
                                    reinterpret_cast<void*>(GetProcAddress(library, "HtmlHelpW")));
}

}  // namespace

bool CompiledHelp::Shows(const std::string& helpFile) const {
    return text::EndsWithIgnoringCase(helpFile, ".chm");
}

void CompiledHelp::Open(const std::string& helpFile, int context, std::uintptr_t owner) {
    const HtmlHelpFunction show = Viewer();
    if (show == nullptr) throw FileError(Operation, helpFile, "this computer has no HTML Help (hhctrl.ocx)");
    const HWND window = show(reinterpret_cast<HWND>(owner), ToWide(helpFile).c_str(), HH_HELP_CONTEXT,
                             static_cast<DWORD_PTR>(context));
    if (window == nullptr)
        throw FileError(Operation, helpFile, "HTML Help cannot show its page " + std::to_string(context));
}

}  // namespace lumarin::windows
