#include "platform/sane/SaneDevice.h"

#include <sane/saneopts.h>

#include "base/Text.h"
#include "platform/sane/SaneOptions.h"
#include "platform/sane/SaneStatus.h"

namespace lumarin::sane {

namespace {

constexpr std::size_t BlockSize = 65536;

bool IsFeeder(const std::string& source) {
    return text::ContainsIgnoringCase(source, "feeder") || text::ContainsIgnoringCase(source, "ADF");
}

/// The setting's first choice for which `wanted` is true; "" when there is none.
template <class Wanted>
std::string FirstChoice(const SaneOptions& options, std::string_view name, Wanted wanted) {
    for (const std::string& choice : options.Choices(name))
        if (wanted(choice)) return choice;
    return {};
}

/// Chooses feeder or glass; says whether the pages come from a feeder. The backs of the pages are not wanted.
bool ChooseSource(const SaneOptions& options, bool several) {
    const auto isOneSided = [](const std::string& source) {
        return IsFeeder(source) && !text::ContainsIgnoringCase(source, "duplex");
    };
    const auto isGlass = [](const std::string& source) { return !IsFeeder(source); };
    std::string source = several ? FirstChoice(options, SANE_NAME_SCAN_SOURCE, isOneSided)
                                 : FirstChoice(options, SANE_NAME_SCAN_SOURCE, isGlass);
    if (source.empty()) source = FirstChoice(options, SANE_NAME_SCAN_SOURCE, IsFeeder);
    if (source.empty()) return false;
    options.Set(SANE_NAME_SCAN_SOURCE, source);
    return IsFeeder(source);
}

}  // namespace

SaneDevice::SaneDevice(const std::string& name) { CheckSane(sane_open(name.c_str(), &handle_)); }

SaneDevice::~SaneDevice() {
    sane_cancel(handle_);
    sane_close(handle_);
}

void SaneDevice::Configure(const ScanOrder& order, const SaneSettings& settings) {
    const SaneOptions options(handle_);
    usesFeeder_ = ChooseSource(options, order.several);
    const std::string colour = FirstChoice(options, SANE_NAME_SCAN_MODE, [](const std::string& mode) {
        return text::ContainsIgnoringCase(mode, "color");
    });
    if (!colour.empty()) options.Set(SANE_NAME_SCAN_MODE, colour);
    options.SetNumber(SANE_NAME_BIT_DEPTH, 8);
    options.SetNumber(SANE_NAME_SCAN_RESOLUTION, order.resolution);
    options.SetToMinimum(SANE_NAME_SCAN_TL_X);
    options.SetToMinimum(SANE_NAME_SCAN_TL_Y);
    options.SetToMaximum(SANE_NAME_SCAN_BR_X);
    options.SetToMaximum(SANE_NAME_SCAN_BR_Y);
    for (const auto& [name, value] : settings) options.Set(name, value);
}

std::optional<Picture> SaneDevice::ReadPage(const std::atomic<bool>& cancelled, std::atomic<int>& percent) {
    if (pages_ > 0 && !usesFeeder_) sane_cancel(handle_);  // a feeder would throw out the pages that wait
    PageAssembler page;
    bool isLastFrame = false;
    while (!isLastFrame) {
        if (cancelled) return std::nullopt;
        const SANE_Status started = sane_start(handle_);
        if (started == SANE_STATUS_NO_DOCS && pages_ > 0) return std::nullopt;
        CheckSane(started);
        SANE_Parameters frame{};
        CheckSane(sane_get_parameters(handle_, &frame));
        page.BeginFrame(frame);
        if (!ReadFrame(page, cancelled, percent)) return std::nullopt;
        isLastFrame = frame.last_frame != SANE_FALSE;
    }
    ++pages_;
    return page.Take();
}

bool SaneDevice::ReadFrame(PageAssembler& page, const std::atomic<bool>& cancelled,
                           std::atomic<int>& percent) {
    std::vector<SANE_Byte> block(BlockSize);
    while (!cancelled) {
        SANE_Int length = 0;
        const SANE_Status status =
            sane_read(handle_, block.data(), static_cast<SANE_Int>(block.size()), &length);
        if (status == SANE_STATUS_EOF) return true;
        CheckSane(status);
        page.Add({block.data(), static_cast<std::size_t>(length)});
        percent = page.Percent();
    }
    return false;
}

}  // namespace lumarin::sane
