#include "platform/sane/SaneScanner.h"

#include <sane/sane.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <optional>

#include "base/PutBack.h"
#include "platform/sane/SaneStatus.h"

namespace lumarin::sane {

namespace {

constexpr auto WaitingStep = std::chrono::milliseconds(20);

std::string TextOf(SANE_String_Const text) { return text != nullptr ? text : ""; }

/// Worker's thread only.
std::vector<ScannerSource> ListSources() {
    const SANE_Device** devices = nullptr;
    CheckSane(sane_get_devices(&devices, SANE_FALSE));
    std::vector<ScannerSource> sources;
    for (; *devices != nullptr; ++devices) {
        const SANE_Device& device = **devices;
        sources.push_back(
            {TextOf(device.name), TextOf(device.vendor), TextOf(device.model), TextOf(device.type)});
    }
    return sources;
}

std::string FirstSource() {
    const std::vector<ScannerSource> sources = ListSources();
    if (sources.empty()) throw ScannerError(NoScannerSource);
    return sources.front().name;
}

}  // namespace

/// What caller and worker share about one acquisition. The worker's jobs keep it alive: the caller may be
/// gone while a device still comes to rest.
struct SaneScanner::Session {
    std::atomic<bool> cancelled = false;
    std::atomic<int> percent = 0;
    std::unique_ptr<SaneDevice> device;  ///< worker's thread only
    std::optional<Picture> page;         ///< the worker's until its job is done, then the caller's
};

SaneScanner::SaneScanner(Setup setup) : setup_(std::move(setup)) {
    // The library looks for its configuration once, when it is set up.
    if (!setup_.configurationFolder.empty()) setenv("SANE_CONFIG_DIR", setup_.configurationFolder.c_str(), 1);
    worker_.Post([this] { started_ = sane_init(nullptr, nullptr); });
}

SaneScanner::~SaneScanner() {
    if (session_ != nullptr) session_->cancelled = true;
    worker_.Post([] { sane_exit(); });
}

void SaneScanner::RequireIdle() const {
    if (inUse_) throw ScannerError("The scanner is already at work.");
}

bool SaneScanner::Do(std::function<void()> job, const WhileWaiting& whileWaiting) {
    std::future<void> done = worker_.Post(std::move(job));
    while (done.wait_for(WaitingStep) != std::future_status::ready)
        if (whileWaiting && !whileWaiting()) return false;
    done.get();
    return true;
}

std::vector<ScannerSource> SaneScanner::Sources(const WhileWaiting& whileWaiting) {
    RequireIdle();
    const Meanwhile inUse(inUse_, true);
    const auto sources = std::make_shared<std::vector<ScannerSource>>();
    const auto list = [this, sources] {
        CheckSane(started_);
        *sources = ListSources();
    };
    const bool done = Do(list, whileWaiting);
    return done ? std::move(*sources) : std::vector<ScannerSource>();
}

ScanOutcome SaneScanner::Acquire(const ScanOrder& order, const ScanEvents& events) {
    RequireIdle();
    const Meanwhile inUse(inUse_, true);
    session_ = std::make_shared<Session>();
    // Whichever way the acquisition ends, also by an exception from an event.
    const AtEnd atRest([this, session = session_] {
        session->cancelled = true;
        worker_.Post([session] { session->device.reset(); });
    });
    return AcquirePages(session_, order, events);
}

ScanOutcome SaneScanner::AcquirePages(const std::shared_ptr<Session>& session, const ScanOrder& order,
                                      const ScanEvents& events) {
    const auto open = [this, session, order] {
        CheckSane(started_);
        session->device = std::make_unique<SaneDevice>(order.source.empty() ? FirstSource() : order.source);
        session->device->Configure(order, setup_.settings);
    };
    if (!Do(open, events.whileWaiting)) return ScanOutcome::Cancelled;
    const bool fromFeeder = session->device->UsesFeeder();

    int number = 1;
    const WhileWaiting waiting = [&] {
        if (events.progress) events.progress(number, session->percent);
        return !events.whileWaiting || events.whileWaiting();
    };
    for (;; ++number) {
        session->percent = 0;
        const auto readPage = [session] {
            session->page = session->device->ReadPage(session->cancelled, session->percent);
        };
        if (!Do(readPage, waiting)) return ScanOutcome::Cancelled;
        if (!session->page) return ScanOutcome::Finished;
        const auto picture = std::make_shared<const Picture>(std::move(*session->page));
        const bool goesOn = events.pageArrived
                                ? events.pageArrived({picture, number, fromFeeder}) == AfterPage::Continue
                                : fromFeeder;
        if (!order.several || !goesOn) return ScanOutcome::Finished;
    }
}

}  // namespace lumarin::sane
