#include "platform/curl/CurlFtp.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "base/Error.h"
#include "platform/curl/CurlConnection.h"
#include "platform/curl/Failures.h"
#include "platform/system/SocketCalls.h"

namespace lumarin::curl {

namespace {

/// How an order ended; without a failure it went well.
struct Ending {
    std::optional<FtpFailure> failure;
};

Ending Carry(CurlConnection& connection, const SendOrder& order) {
    try {
        connection.Send(order);
        return {};
    } catch (const FailedTransfer& failed) {
        return {failed.failure};
    } catch (const std::exception& error) {
        return {FtpFailure{error.what()}};
    }
}

}  // namespace

/// The thread that works the connection, and what it shares with the caller.
class CurlFtp::Worker {
public:
    explicit Worker(const std::string& certificates)
        : connection_(certificates, sockets_), thread_([this] { Work(); }) {}

    ~Worker() {
        {
            const std::lock_guard lock(mutex_);
            ending_ = true;
            sockets_.Interrupt();
        }
        changed_.notify_one();
        thread_.join();
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void Begin(SendOrder order) {
        {
            const std::lock_guard lock(mutex_);
            if (busy_) throw ApplicationError("CurlFtp", "A file is being sent already.");
            busy_ = true;
            order_ = std::move(order);
        }
        changed_.notify_one();
    }

    std::optional<Ending> TakeEnding() {
        const std::lock_guard lock(mutex_);
        return std::exchange(outcome_, std::nullopt);
    }

    void Drop() {
        {
            const std::lock_guard lock(mutex_);
            busy_ = false;
            order_.reset();
            outcome_.reset();
            ++dropped_;
            closing_ = true;
            sockets_.Interrupt();
        }
        changed_.notify_one();
    }

private:
    void Work() {
        platform::IgnoreBrokenConnections();  // a server may close while it is written to
        std::unique_lock lock(mutex_);
        for (;;) {
            changed_.wait(lock, [this] { return ending_ || closing_ || order_; });
            if (ending_) break;
            if (std::exchange(closing_, false)) {
                lock.unlock();
                connection_.Close();
                lock.lock();
            } else {
                CarryOut(lock);
            }
        }
        lock.unlock();
        connection_.Close();  // here, where a broken pipe does no harm
    }

    void CarryOut(std::unique_lock<std::mutex>& lock) {
        const SendOrder order = *std::exchange(order_, std::nullopt);
        const int droppedBefore = dropped_;
        sockets_.Resume();
        lock.unlock();
        Ending ending = Carry(connection_, order);
        lock.lock();
        if (dropped_ != droppedBefore) return;  // nobody wants to know any more
        busy_ = false;
        outcome_ = std::move(ending);
    }

    Sockets sockets_;
    CurlConnection connection_;
    std::mutex mutex_;
    std::condition_variable changed_;
    // Under the mutex.
    std::optional<SendOrder> order_;  ///< that waits for the thread
    std::optional<Ending> outcome_;   ///< of the last order, until it is taken
    bool busy_ = false;               ///< an order waits or is carried out
    bool closing_ = false;            ///< the connection is to go
    bool ending_ = false;
    int dropped_ = 0;
    std::thread thread_;  ///< last: it uses the members above
};

CurlFtp::CurlFtp(const Setup& setup) : worker_(std::make_unique<Worker>(setup.certificates)) {}

CurlFtp::~CurlFtp() = default;

void CurlFtp::SetServer(const FtpServer& server) { server_ = server; }

void CurlFtp::SetRequestTimeout(int seconds) { timeout_ = seconds; }

void CurlFtp::Execute(const std::string& command) {
    worker_->Begin({server_, timeout_, ftp::ParseSendCommand(command)});
}

void CurlFtp::Poll() {
    std::optional<Ending> ending = worker_->TakeEnding();
    if (!ending) return;
    if (ending->failure) failure_ = *ending->failure;
    const auto raise = StateChanged;  // the handler may take itself off
    if (raise) raise(ending->failure ? FtpState::Error : FtpState::ResponseCompleted);
}

void CurlFtp::Cancel() { worker_->Drop(); }

}  // namespace lumarin::curl
