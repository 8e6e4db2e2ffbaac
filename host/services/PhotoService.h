#pragma once

#include "entry/Services.h"
#include "host/server/Server.h"

#include <string>

namespace host {

/// The service "PhotoInterface" over the listing server, which outlives it. What was begun belongs to the
/// server: an object that has begun nothing goes on with what was begun last.
class PhotoService final : public lumarin::PhotoInterface {
public:
    PhotoService(Server& server, std::string connectionName)
        : server_(server), connectionName_(std::move(connectionName)) {}

    void UploadPhotoFile(const std::string& name, lumarin::UploadMode mode) override;
    void UploadPhotoFile(std::span<const std::byte> chunk) override;
    /// 0 when the package is applied, 1 when it is refused; the server's log says why.
    int BatchUpdate(const std::string& connectionName, const std::string& packageName,
                    lumarin::BatchKind kind) override;

private:
    Spool::Sender Sender() const { return begun_ ? this : nullptr; }

    Server& server_;
    std::string connectionName_;
    bool begun_ = false;
};

}  // namespace host
