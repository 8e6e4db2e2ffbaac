#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/windows/twain/Twain.h"

namespace lumarin::twain {

/// A text of the interface in UTF-8.
std::string TextOf(const TW_STR32& text);

/// The source manager of the machine, loaded and opened; all calls on the thread of the window that it was
/// opened with. Failures throw ScannerError.
class SourceManager {
public:
    explicit SourceManager(HWND window);
    ~SourceManager();
    SourceManager(const SourceManager&) = delete;
    SourceManager& operator=(const SourceManager&) = delete;

    /// The sources that give pictures, the user's usual one first.
    std::vector<TW_IDENTITY> Sources();

    /// One operation of the interface, for the manager itself or for a source: a TWRC_ value.
    TW_UINT16 Call(TW_IDENTITY* source, TW_UINT32 group, TW_UINT16 type, TW_UINT16 message, TW_MEMREF data);
    /// Why the last operation failed: a TWCC_ value.
    TW_UINT16 Condition(TW_IDENTITY* source);

    /// Memory that goes to and fro between program and source.
    TW_HANDLE Allocate(std::size_t size);
    void Free(TW_HANDLE memory);
    std::span<std::byte> Lock(TW_HANDLE memory);
    void Unlock(TW_HANDLE memory);

private:
    using Entry = TW_UINT16(__stdcall*)(TW_IDENTITY*, TW_IDENTITY*, TW_UINT32, TW_UINT16, TW_UINT16,
                                        TW_MEMREF);
    struct LibraryCloser {
        using pointer = HMODULE;
        void operator()(HMODULE library) const { FreeLibrary(library); }
    };

    static HMODULE LoadManager();
    void TakeMemoryFunctions();

    std::unique_ptr<HMODULE, LibraryCloser> library_;
    Entry entry_ = nullptr;
    TW_IDENTITY program_{};
    HWND window_;
    TW_ENTRYPOINT memory_{};  ///< empty with a manager that has no memory functions of its own
};

}  // namespace lumarin::twain
