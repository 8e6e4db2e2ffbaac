#include "platform/windows/twain/MessageThread.h"

#include <ole2.h>

#include <utility>

namespace lumarin::twain {

namespace {

constexpr DWORD Moment = 20;  // milliseconds

}  // namespace

MessageThread::MessageThread()
    : changed_(CreateEventW(nullptr, FALSE, FALSE, nullptr)), thread_([this] { Work(); }) {}

MessageThread::~MessageThread() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    SetEvent(changed_.get());
    thread_.join();
}

std::future<void> MessageThread::Post(std::function<void()> job) {
    std::packaged_task<void()> task(std::move(job));
    std::future<void> done = task.get_future();
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(task));
    }
    SetEvent(changed_.get());
    return done;
}

void MessageThread::Work() {
    // A library that cannot be loaded is reported by the program, not by the system.
    SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, nullptr);
    // Many sources are built on automation objects and expect a thread that is ready for them.
    const bool isReady = SUCCEEDED(OleInitialize(nullptr));
    while (DoNextJob()) {
    }
    if (isReady) OleUninitialize();
}

bool MessageThread::DoNextJob() {
    std::packaged_task<void()> job;
    {
        const std::lock_guard lock(mutex_);
        if (jobs_.empty() && ending_) return false;
        if (!jobs_.empty()) {
            job = std::move(jobs_.front());
            jobs_.pop_front();
        }
    }
    if (job.valid())
        job();
    else
        RunMessages();
    return true;
}

void MessageThread::RunMessages() {
    const HANDLE changed = changed_.get();
    // Without windows of a source there is nothing to look after in the meantime.
    MsgWaitForMultipleObjectsEx(1, &changed, filter_ ? Moment : INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) Run(message);
    // Newer managers hand over what a source reports with whichever message comes next.
    message = {};
    if (filter_) filter_(message);
}

void MessageThread::Run(MSG& message) {
    if (filter_ && filter_(message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

}  // namespace lumarin::twain
