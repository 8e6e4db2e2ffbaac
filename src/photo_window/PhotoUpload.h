#pragma once

#include <string>

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

/// The server has the package but refused to apply it.
class UpdateRefused : public Error {
public:
    explicit UpdateRefused(int result)
        : Error(ApplicationErrorNumber, "server",
                "The server refused the update (result " + std::to_string(result) + ")") {}
};

enum class UploadOutcome { Applied, Canceled };

/// Runs a step that talks to the server; whatever it throws becomes ServerUnreachable.
template <class Step>
auto AtServer(Step step) {
    try {
        return step();
    } catch (const std::exception& error) {
        throw ServerUnreachable(error.what());
    }
}

/// Sends one package in chunks, with the progress window, and has the server apply it.
class PhotoUpload {
public:
    static constexpr std::size_t ChunkSize = 5120;  ///< bytes

    PhotoUpload(Desktop& desktop, HostLink& host, const Clock& clock)
        : desktop_(desktop), host_(host), progress_(desktop, clock, host) {}

    /// Throws ServerUnreachable or UpdateRefused; FileError when the package cannot be read. However it
    /// ends but applied, the server keeps nothing of it.
    UploadOutcome Send(const std::string& packagePath, const std::string& packageName,
                       const OwnerWindow* owner);

    /// Ends the sending as the progress window's Cancel does.
    void Stop() { stopped_ = true; }

private:
    bool SendChunks(PhotoInterface& service, const std::string& packagePath);

    Desktop& desktop_;
    HostLink& host_;
    frmProgress progress_;
    bool stopped_ = false;
};

}  // namespace lumarin
