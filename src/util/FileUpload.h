#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Error.h"
#include "entry/HostLink.h"
#include "forms/Desktop.h"
#include "util/frmProgress.h"

namespace lumarin {

/// The server could not be reached, or the connection broke; the description is the service's.
class ServerUnreachable : public Error {
public:
    explicit ServerUnreachable(const std::string& reason) : Error(ApplicationErrorNumber, "server", reason) {}
};

/// Runs a step that talks to the server; whatever it throws becomes ServerUnreachable.
template <class Step>
auto AtServer(Step step) {
    try {
        return step();
    } catch (const std::exception& error) {
        throw ServerUnreachable(error.what());
    }
}

enum class FileSent { Whole, Cancelled };

/// Sends one file through the photo service in chunks, with the progress window. The server drops what it
/// got unless the caller says that it is to be kept.
class FileUpload {
public:
    static constexpr std::size_t ChunkSize = 5120;  ///< bytes

    FileUpload(Desktop& desktop, HostLink& host, const Clock& clock)
        : desktop_(desktop), host_(host), progress_(desktop, clock, host) {}
    ~FileUpload() { Abandon(); }
    FileUpload(const FileUpload&) = delete;
    FileUpload& operator=(const FileUpload&) = delete;

    /// What the progress window says of the file that is sent next.
    void SetParts(std::vector<SentPart> parts) { progress_.SetParts(std::move(parts)); }
    /// Throws ServerUnreachable, and FileError when the file cannot be read. A file that was not sent whole
    /// has been abandoned.
    FileSent Send(const std::string& path, const std::string& serverName, const OwnerWindow* owner);

    /// The service that has the file; only after it was sent whole.
    PhotoInterface& Service() const { return *service_; }

    /// The server has dealt with the file.
    void Keep() { service_.reset(); }
    /// Drops at the server what was sent, unless it is to be kept.
    void Abandon() noexcept;

    /// Ends the sending as the progress window's Cancel does.
    void Stop() { stopped_ = true; }

private:
    /// False when the user cancelled.
    bool SendWhole(const std::string& path);
    bool SendChunks(const std::string& path);
    bool IsCancelled() const { return stopped_ || progress_.Cancel(); }

    Desktop& desktop_;
    HostLink& host_;
    frmProgress progress_;
    std::unique_ptr<PhotoInterface> service_;  ///< while the server may have an upload of ours
    bool stopped_ = false;
};

}  // namespace lumarin
