#pragma once

#include <memory>
#include <string>

#include "util/FtpTransfer.h"

namespace lumarin::curl {

/// Adapter: the transfer port over libcurl. The library waits for a server in a few places even when it is
/// asked not to, so a thread of its own works the connection; that connection is kept for the files of one
/// window.
class CurlFtp final : public FtpTransfer {
public:
    struct Setup {
        /// File of the certificates (PEM) to trust; "" is those of the machine.
        std::string certificates;
    };

    explicit CurlFtp(const Setup& setup = {});
    /// Ends what runs; waits for the thread, which no server can hold up.
    ~CurlFtp() override;

    void SetServer(const FtpServer& server) override;
    void SetRequestTimeout(int seconds) override;
    void Execute(const std::string& command) override;
    void Poll() override;
    const FtpFailure& Failure() const override { return failure_; }
    void Cancel() override;

private:
    class Worker;

    FtpServer server_;
    int timeout_ = 120;  // seconds
    FtpFailure failure_;
    std::unique_ptr<Worker> worker_;
};

}  // namespace lumarin::curl
