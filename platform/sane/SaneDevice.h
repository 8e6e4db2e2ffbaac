#pragma once

#include <sane/sane.h>

#include <atomic>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "forms/Picture.h"
#include "imaging/Scanner.h"
#include "platform/sane/PageAssembler.h"

namespace lumarin::sane {

/// Device settings by their name in the scanner library, applied in this order.
using SaneSettings = std::vector<std::pair<std::string, std::string>>;

/// One opened device; it is put to rest and closed at the end. All calls on one thread, except that the
/// cancel flag may be raised and the percentage read from another. Failures throw ScannerError.
class SaneDevice {
public:
    explicit SaneDevice(const std::string& name);
    ~SaneDevice();
    SaneDevice(const SaneDevice&) = delete;
    SaneDevice& operator=(const SaneDevice&) = delete;

    /// Colour, 8 bits, the whole area, the feeder for several pages and the glass for one, as far as the
    /// device has these; then `settings`.
    void Configure(const ScanOrder& order, const SaneSettings& settings);
    bool UsesFeeder() const { return usesFeeder_; }

    /// The next page; nothing when the feeder has no more, or when `cancelled` was raised.
    std::optional<Picture> ReadPage(const std::atomic<bool>& cancelled, std::atomic<int>& percent);

private:
    /// False when the reading was cancelled.
    bool ReadFrame(PageAssembler& page, const std::atomic<bool>& cancelled, std::atomic<int>& percent);

    SANE_Handle handle_ = nullptr;
    bool usesFeeder_ = false;
    int pages_ = 0;
};

}  // namespace lumarin::sane
