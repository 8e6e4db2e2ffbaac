#include "host/services/PhotoService.h"

#include "host/server/Refusal.h"
#include "host/services/DbService.h"

namespace host {

void PhotoService::UploadPhotoFile(const std::string& name, lumarin::UploadMode mode) {
    switch (mode) {
        case lumarin::UploadMode::Begin:
            begun_ = true;
            return server_.Uploads().Begin(name, this);
        case lumarin::UploadMode::End:
            return server_.Uploads().End(Sender());
        case lumarin::UploadMode::Abort:
            // A begin that failed is aborted too: what another sends must not go with it.
            if (begun_) server_.Uploads().Abort(this);
            return;
    }
    throw Refusal("An upload has no mode " + std::to_string(static_cast<int>(mode)));
}

void PhotoService::UploadPhotoFile(std::span<const std::byte> chunk) {
    server_.Uploads().Append(chunk, Sender());
}

int PhotoService::BatchUpdate(const std::string& connectionName, const std::string& packageName,
                              lumarin::BatchKind kind) {
    constexpr int Applied = 0;
    constexpr int Refused = 1;
    try {
        RequireConnection(connectionName, connectionName_);
        if (kind != lumarin::BatchKind::PhotoPackage)
            throw Refusal("There is no update of kind " + std::to_string(static_cast<int>(kind)));
        server_.ApplyPackage(packageName);
        return Applied;
    } catch (const lumarin::Error&) {
        return Refused;
    }
}

}  // namespace host
