#include "platform/sane/Worker.h"

namespace lumarin::sane {

Worker::Worker() : thread_([this] { Work(); }) {}

Worker::~Worker() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

std::future<void> Worker::Post(std::function<void()> job) {
    std::packaged_task<void()> task(std::move(job));
    std::future<void> done = task.get_future();
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(task));
    }
    changed_.notify_one();
    return done;
}

void Worker::Work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return ending_ || !jobs_.empty(); });
        if (jobs_.empty()) return;
        std::packaged_task<void()> job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        job();
        job = {};  // what the job holds is given up here, not under the lock
        lock.lock();
    }
}

}  // namespace lumarin::sane
