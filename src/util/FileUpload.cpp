#include "util/FileUpload.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "base/Files.h"
#include "base/PutBack.h"

namespace lumarin {

bool FileUpload::SendChunks(const std::string& path) {
    files::Reader file(path);
    const std::uint64_t length = file.Length();
    std::uint64_t remaining = length;
    while (remaining > 0) {
        const std::string chunk =
            file.Read(static_cast<std::size_t>(std::min<std::uint64_t>(remaining, ChunkSize)));
        if (chunk.empty()) throw FileError("read", path, "it has become shorter");
        desktop_.ProcessPendingEvents();
        if (IsCancelled()) return false;
        AtServer([&] { service_->UploadPhotoFile(std::as_bytes(std::span(chunk))); });
        remaining -= chunk.size();
        progress_.ShowSent(length - remaining, length);
    }
    return true;
}

bool FileUpload::SendWhole(const std::string& path) {
    try {
        const bool whole = SendChunks(path);
        AtServer([&] { service_->UploadPhotoFile("", UploadMode::End); });
        return whole;
    } catch (const ServerUnreachable&) {
        // A user who has given up while the server was silent is not asked whether to try again.
        desktop_.ProcessPendingEvents();
        if (!IsCancelled()) throw;
        return false;
    }
}

FileSent FileUpload::Send(const std::string& path, const std::string& serverName, const OwnerWindow* owner) {
    service_ = AtServer([&] { return RequestService<PhotoInterface>(host_.Common()); });
    try {
        // When this fails, only its answer may be lost: the abort goes out all the same.
        AtServer([&] { service_->UploadPhotoFile(serverName, UploadMode::Begin); });
        bool whole = false;
        {
            progress_.Display(ShowMode::Modeless, owner);
            const AtEnd unloaded([this] { progress_.Unload(); });
            whole = SendWhole(path);
        }
        if (!whole) Abandon();
        return whole ? FileSent::Whole : FileSent::Cancelled;
    } catch (...) {
        Abandon();
        throw;
    }
}

void FileUpload::Abandon() noexcept {
    if (service_ == nullptr) return;
    try {
        service_->UploadPhotoFile("", UploadMode::Abort);
    } catch (...) {  // it cannot be reached: what it has it will drop itself
    }
    service_.reset();
}

}  // namespace lumarin
