#include <windows.h>

#include <ntsecapi.h>

/// Random bytes, as libvips asks for them. On 32-bit systems the name is exported without decoration.
extern "C" __declspec(dllexport) BOOL WINAPI ProcessPrng(PBYTE bytes, SIZE_T count) {
    return RtlGenRandom(bytes, static_cast<ULONG>(count));
}
