#include "platform/windows/ClipboardBitmap.h"

#include <windows.h>

#include <memory>

#include "platform/dib/DibReader.h"

namespace lumarin::windows {

namespace {

constexpr int Tries = 5;
constexpr DWORD Pause = 20;  // milliseconds

/// The clipboard while it is open; another program may have it for a moment.
class OpenedClipboard {
public:
    OpenedClipboard() {
        for (int tried = 1; !(opened_ = OpenClipboard(nullptr) != FALSE) && tried < Tries; ++tried)
            Sleep(Pause);
    }
    ~OpenedClipboard() {
        if (opened_) CloseClipboard();
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;

    /// The clipboard keeps it. Null when it has none; other bitmaps are offered in this form too.
    HGLOBAL Bitmap() const { return opened_ ? GetClipboardData(CF_DIB) : nullptr; }

private:
    bool opened_ = false;
};

struct Unlock {
    void operator()(void* memory) const { GlobalUnlock(memory); }
};

}  // namespace

PicturePtr ClipboardBitmap() {
    const OpenedClipboard clipboard;
    const HGLOBAL memory = clipboard.Bitmap();
    if (memory == nullptr) return nullptr;
    const auto* bytes = static_cast<const std::byte*>(GlobalLock(memory));
    if (bytes == nullptr) return nullptr;
    const std::unique_ptr<void, Unlock> locked(memory);
    try {
        return std::make_shared<Picture>(dib::ReadDib({bytes, GlobalSize(memory)}));
    } catch (const ImagingError&) {
        return nullptr;
    }
}

}  // namespace lumarin::windows
