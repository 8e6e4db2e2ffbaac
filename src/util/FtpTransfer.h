#pragma once

#include <functional>
#include <string>

namespace lumarin {

/// How a transfer ended, with the numbers that hosts know.
enum class FtpState { Error = 11, ResponseCompleted = 12 };

/// Whether the connection is encrypted (explicit TLS). `WhenOffered` goes on without where the server does
/// not know it; a certificate that cannot be trusted is a failure in either case.
enum class FtpSecurity { None, WhenOffered, Required };

struct FtpServer {
    std::string address;  ///< "ftp://", the host, and ":" with the port where it is not the usual one
    std::string user;
    std::string password;
    FtpSecurity security = FtpSecurity::None;
};

/// Why a command failed, in words for the user.
struct FtpFailure {
    std::string text;
    bool canBeRetried = true;  ///< false where the same command would only fail again
};

/// Port: sends files to an FTP server in passive mode, one command at a time. No call waits for the server;
/// all calls and the event on the caller's thread.
class FtpTransfer {
public:
    virtual ~FtpTransfer() = default;

    /// Raised from within `Poll` only, once for each command. The handler may execute the next one.
    std::function<void(FtpState)> StateChanged;

    /// For the commands to come.
    virtual void SetServer(const FtpServer& server) = 0;
    /// How long a connection, a reply or the next bytes may take, in seconds; from 1. A long file that keeps
    /// moving takes as long as it needs.
    virtual void SetRequestTimeout(int seconds) = 0;

    /// Begins a command (see `SendCommand`). Folders that the remote name leads through are made where they
    /// are missing; a file of that name is replaced. It completes when the server has confirmed the file
    /// and has been asked for its length, and that length is what was read. Throws Error for a malformed
    /// command and while another one runs.
    virtual void Execute(const std::string& command) = 0;

    /// Reports what has happened since; to be called about twenty times a second while a command runs.
    virtual void Poll() = 0;

    /// Why the last command failed.
    virtual const FtpFailure& Failure() const = 0;

    /// Ends the command that runs, if any, about which nothing more is reported, and lets go of the
    /// connection. A file that was on its way may be there in part. Returns at once.
    virtual void Cancel() = 0;
};

}  // namespace lumarin
