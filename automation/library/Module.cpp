#include "automation/library/Module.h"

#include <atomic>

namespace lumarin::automation::module {

namespace {

HMODULE handle = nullptr;
std::atomic<long> uses = 0;

}  // namespace

void Loaded(HMODULE loaded) { handle = loaded; }

std::wstring Path() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(handle, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) return path.substr(0, length);
        path.resize(path.size() * 2);
    }
}

Use::Use() { ++uses; }
Use::~Use() { --uses; }
void Lock(bool lock) { uses += lock ? 1 : -1; }
bool IsInUse() { return uses > 0; }

void Stay() {
    static const Use forGood;
    HMODULE pinned = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCWSTR>(&Stay), &pinned);
}

}  // namespace lumarin::automation::module
