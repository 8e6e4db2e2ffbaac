#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Clock.h"
#include "entry/HostLink.h"
#include "forms/Controls.h"
#include "forms/Desktop.h"
#include "util/FtpTransfer.h"

namespace lumarin {

enum class FtpOutcome { Sent = 0, Failed = 1, Cancelled = 2 };

/// What became of the files. They are sent in the order of their list, so `sent` also says which ones.
struct FtpResult {
    FtpOutcome outcome = FtpOutcome::Failed;
    std::int32_t sent = 0;  ///< files that the server is known to hold whole
    std::string problem;    ///< what the user was told; "" when nothing failed
};

/// Sends files to an FTP server and shows a film, the elapsed time and a cancel button meanwhile. Files that
/// were sent stay there when a later one fails or the user cancels.
class frmFTP : public Form {
public:
    /// Everything outlives the window; the transfer serves no other window while files are sent.
    frmFTP(Desktop& desktop, const Clock& clock, HostLink& host, FtpTransfer& transfer);

    FtpTransfer& Inet;
    lumarin::Animation Animation{*this, "Animation", {.accessibleName = "Files on their way to the server"}};
    lumarin::Timer Timer{*this, "Timer"};
    Label lblCopyInProgress{*this, "lblCopyInProgress", {"Copy in progress please wait ..."}};
    Label lblFile{*this, "lblFile"};
    Label lblElapsedTime{*this, "lblElapsedTime", {"Elapsed Time:"}}, lblTime{*this, "lblTime"};
    Button cmdCancel{*this, "cmdCancel", {"&Cancel"}};

    /// What is sent: texts as `ftp::ParseServer` and `ftp::SplitFileList` take them, and the remote folder,
    /// which is made when it is missing; "" is where the server puts the user.
    struct Order {
        std::string server, remoteFolder, files;
        FtpSecurity security = FtpSecurity::None;
    };

    /// Shows the window modal above `owner` (which may be null) and returns when all files are sent, the user
    /// gave up after a failure, or cancelled. Nothing is sent unless the texts are sound and every file can
    /// be read. Throws nothing: what goes wrong is shown and stands in the result.
    void SendFiles(const Order& order, FtpResult& result, const OwnerWindow* owner);

protected:
    bool OnQueryClose(CloseReason reason) override;
    void OnUnload() override { Timer.SetEnabled(false); }

private:
    enum class State { Sending = 0, Cancelled = 2 };

    void Prepare(const Order& order);
    void Start(FtpResult& result);
    void SendFile();
    void TransferChanged(FtpState state);
    void FileFailed(const FtpFailure& failure);
    void Finish(FtpOutcome outcome);
    void Cancel();
    void ShowElapsedTime();

    const Clock& clock_;
    HostLink& host_;
    std::vector<std::string> files_;
    std::int32_t index_ = 0;  ///< of the file that is being sent
    std::string remoteFolder_;
    std::int64_t started_ = 0;  ///< wall clock milliseconds
    State state_ = State::Sending;
    FtpResult* result_ = nullptr;  ///< the caller's, while files are sent
};

}  // namespace lumarin
