#pragma once

#include <string>
#include <utility>
#include <vector>

#include "util/FileUpload.h"

namespace lumarin {

/// The server has the package but refused to apply it.
class UpdateRefused : public Error {
public:
    explicit UpdateRefused(int result)
        : Error(ApplicationErrorNumber, "server",
                "The server refused the update (result " + std::to_string(result) + ")") {}
};

enum class UploadOutcome { Applied, Cancelled };

/// Sends one package, with the progress window, and has the server apply it.
class PhotoUpload {
public:
    PhotoUpload(Desktop& desktop, HostLink& host, const Clock& clock)
        : host_(host), file_(desktop, host, clock) {}

    /// What the progress window says of the package.
    void SetParts(std::vector<SentPart> parts) { file_.SetParts(std::move(parts)); }
    /// Throws ServerUnreachable or UpdateRefused; FileError when the package cannot be read. However it
    /// ends but applied, the server keeps nothing of it.
    UploadOutcome Send(const std::string& packagePath, const std::string& packageName,
                       const OwnerWindow* owner);

    /// Ends the sending as the progress window's Cancel does.
    void Stop() { file_.Stop(); }

private:
    int Apply(const std::string& packageName);

    HostLink& host_;
    FileUpload file_;
};

}  // namespace lumarin
