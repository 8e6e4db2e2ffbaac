#pragma once

#include <memory>
#include <string>
#include <vector>

#include "imaging/Scanner.h"
#include "platform/sane/SaneDevice.h"
#include "platform/sane/Worker.h"

namespace lumarin::sane {

/// Adapter: the scanner port over libsane. The devices are worked by a thread of its own, so that a device
/// that keeps still never keeps the caller. One object per program.
class SaneScanner final : public Scanner {
public:
    struct Setup {
        /// Folder of the library's configuration (dll.conf and the devices' files); "" is the machine's.
        std::string configurationFolder;
        /// Device settings that go before the usual ones.
        SaneSettings settings;
    };

    explicit SaneScanner(Setup setup = {});
    /// Waits until a device that was left behind by a cancel has come to rest.
    ~SaneScanner() override;

    std::vector<ScannerSource> Sources(const WhileWaiting& whileWaiting) override;
    ScanOutcome Acquire(const ScanOrder& order, const ScanEvents& events) override;

private:
    struct Session;

    void RequireIdle() const;
    /// Does the job on the worker's thread. False when it was cancelled; the job then runs on by itself.
    bool Do(std::function<void()> job, const WhileWaiting& whileWaiting);
    ScanOutcome AcquirePages(const std::shared_ptr<Session>& session, const ScanOrder& order,
                             const ScanEvents& events);

    Setup setup_;
    SANE_Status started_ = SANE_STATUS_GOOD;  ///< worker's thread only
    bool inUse_ = false;
    std::shared_ptr<Session> session_;  ///< the acquisition that runs, or the last one
    Worker worker_;                     ///< last: its jobs use the members above
};

}  // namespace lumarin::sane
