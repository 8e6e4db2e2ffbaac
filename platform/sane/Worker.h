#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <mutex>
#include <thread>

namespace lumarin::sane {

/// One thread that does jobs in the order in which they were posted. The destructor waits until all of
/// them are done.
class Worker {
public:
    Worker();
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// The future holds what the job throws; dropping it lets the job run on unobserved.
    std::future<void> Post(std::function<void()> job);

private:
    void Work();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::packaged_task<void()>> jobs_;
    bool ending_ = false;
    std::thread thread_;
};

}  // namespace lumarin::sane
