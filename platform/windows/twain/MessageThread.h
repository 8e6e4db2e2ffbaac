#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <thread>

namespace lumarin::twain {

/// A thread that owns windows: it does jobs in the order in which they were posted, and in between runs the
/// messages of its windows. The destructor waits until all jobs are done.
class MessageThread {
public:
    /// True when the message is dealt with.
    using Filter = std::function<bool(MSG&)>;

    MessageThread();
    ~MessageThread();
    MessageThread(const MessageThread&) = delete;
    MessageThread& operator=(const MessageThread&) = delete;

    /// The future holds what the job throws; dropping it lets the job run on unobserved.
    std::future<void> Post(std::function<void()> job);

    /// The rest is for the jobs. Sees every message first; none is allowed.
    void SetFilter(Filter filter) { filter_ = std::move(filter); }
    /// Waits a moment for messages and runs them.
    void RunMessages();

private:
    struct HandleCloser {
        using pointer = HANDLE;
        void operator()(HANDLE handle) const { CloseHandle(handle); }
    };

    void Work();
    bool DoNextJob();
    void Run(MSG& message);

    std::unique_ptr<HANDLE, HandleCloser> changed_;
    std::mutex mutex_;
    std::deque<std::packaged_task<void()>> jobs_;
    bool ending_ = false;
    Filter filter_;
    std::thread thread_;
};

}  // namespace lumarin::twain
