#include "platform/windows/twain/TwainScanner.h"

#include <chrono>
#include <new>

#include "base/PutBack.h"
#include "base/Text.h"
#include "platform/windows/twain/Acquisition.h"
#include "platform/windows/twain/ConditionCodes.h"

namespace lumarin::twain {

namespace {

constexpr auto WaitingStep = std::chrono::milliseconds(20);

ScannerSource Describe(const TW_IDENTITY& identity) {
    const std::string name = TextOf(identity.ProductName);
    std::string vendor = TextOf(identity.Manufacturer);
    // Most names begin with the maker's.
    if (text::ContainsIgnoringCase(name, vendor)) vendor.clear();
    return {name, vendor, name, TextOf(identity.ProductFamily)};
}

/// Message thread only.
std::vector<ScannerSource> ListSources(const std::string& onlySource) {
    const EventWindow window(nullptr);
    SourceManager manager(window.Handle());
    std::vector<ScannerSource> sources;
    for (const TW_IDENTITY& identity : SourcesNamed(manager, onlySource))
        sources.push_back(Describe(identity));
    return sources;
}

/// A source's window and its owner's send each other messages, and the sender waits. Leaves what was posted.
void AnswerOtherThreads() {
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
}

}  // namespace

class TwainScanner::Work {
public:
    explicit Work(Setup setup) : setup_(std::move(setup)) {}
    ~Work() {
        if (acquisition_ != nullptr) acquisition_->Cancel();
        Do([] {}, {});  // behind all others
    }

    std::vector<ScannerSource> Sources(const WhileWaiting& whileWaiting);
    ScanOutcome Acquire(const ScanOrder& order, const ScanEvents& events);

private:
    void RequireIdle() const {
        if (inUse_) throw ScannerError("The scanner is already at work.");
    }
    /// Does the job on the message thread. False when it was cancelled; the job then runs on by itself.
    bool Do(std::function<void()> job, const WhileWaiting& whileWaiting);
    ScanOutcome AcquirePages(const std::shared_ptr<Acquisition>& acquisition, const ScanOrder& order,
                             const ScanEvents& events);

    Setup setup_;
    bool inUse_ = false;
    std::shared_ptr<Acquisition> acquisition_;  ///< the one that runs, or the last one
    MessageThread thread_;                      ///< last: its jobs use the members above
};

bool TwainScanner::Work::Do(std::function<void()> job, const WhileWaiting& whileWaiting) {
    std::future<void> done = thread_.Post(std::move(job));
    while (done.wait_for(WaitingStep) != std::future_status::ready) {
        AnswerOtherThreads();
        if (whileWaiting && !whileWaiting()) return false;
    }
    try {
        done.get();
    } catch (const std::bad_alloc&) {
        throw ScannerError(ConditionText(TWCC_LOWMEMORY));
    }
    return true;
}

std::vector<ScannerSource> TwainScanner::Work::Sources(const WhileWaiting& whileWaiting) {
    RequireIdle();
    const Meanwhile inUse(inUse_, true);
    const auto sources = std::make_shared<std::vector<ScannerSource>>();
    const auto list = [sources, only = setup_.onlySource] { *sources = ListSources(only); };
    const bool done = Do(list, whileWaiting);
    return done ? std::move(*sources) : std::vector<ScannerSource>();
}

ScanOutcome TwainScanner::Work::Acquire(const ScanOrder& order, const ScanEvents& events) {
    RequireIdle();
    const Meanwhile inUse(inUse_, true);
    acquisition_ = std::make_shared<Acquisition>(thread_, GetActiveWindow());
    // Whichever way the acquisition ends, also by an exception from an event.
    const AtEnd atRest([this, acquisition = acquisition_] {
        acquisition->Cancel();
        thread_.Post([acquisition] { acquisition->Close(); });
    });
    return AcquirePages(acquisition_, order, events);
}

ScanOutcome TwainScanner::Work::AcquirePages(const std::shared_ptr<Acquisition>& acquisition,
                                             const ScanOrder& order, const ScanEvents& events) {
    const auto open = [acquisition, order, only = setup_.onlySource] { acquisition->Open(order, only); };
    if (!Do(open, events.whileWaiting)) return ScanOutcome::Cancelled;

    int number = 1;
    const WhileWaiting waiting = [&] {
        // How far a source is shows in its own window.
        if (events.progress) events.progress(number, -1);
        return !events.whileWaiting || events.whileWaiting();
    };
    for (;; ++number) {
        const auto page = std::make_shared<std::optional<Acquisition::Page>>();
        if (!Do([acquisition, page] { *page = acquisition->NextPage(); }, waiting))
            return ScanOutcome::Cancelled;
        if (!*page) return number > 1 ? ScanOutcome::Finished : ScanOutcome::Cancelled;
        const bool fromFeeder = (*page)->fromFeeder, isLast = (*page)->isLast;
        const auto picture = std::make_shared<const Picture>(std::move((*page)->picture));
        const bool goesOn = events.pageArrived
                                ? events.pageArrived({picture, number, fromFeeder}) == AfterPage::Continue
                                : fromFeeder;
        if (!order.several || !goesOn || isLast) return ScanOutcome::Finished;
    }
}

TwainScanner::TwainScanner(Setup setup) : work_(std::make_unique<Work>(std::move(setup))) {}

TwainScanner::~TwainScanner() = default;

std::vector<ScannerSource> TwainScanner::Sources(const WhileWaiting& whileWaiting) {
    return work_->Sources(whileWaiting);
}

ScanOutcome TwainScanner::Acquire(const ScanOrder& order, const ScanEvents& events) {
    return work_->Acquire(order, events);
}

}  // namespace lumarin::twain
