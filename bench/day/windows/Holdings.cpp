#include "bench/day/Holdings.h"

#include <windows.h>

#include <psapi.h>

namespace bench {

Holdings HeldBy(std::int64_t processId) {
    const HANDLE process =
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, static_cast<DWORD>(processId));
    PROCESS_MEMORY_COUNTERS memory{};
    DWORD handles = 0;
    GetProcessMemoryInfo(process, &memory, sizeof memory);
    GetProcessHandleCount(process, &handles);
    CloseHandle(process);
    return {static_cast<double>(memory.WorkingSetSize) / 1'048'576, static_cast<int>(handles)};
}

}  // namespace bench
