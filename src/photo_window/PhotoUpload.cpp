#include "photo_window/PhotoUpload.h"

#include <memory>
#include <span>

#include "base/Files.h"

namespace lumarin {

namespace {

/// Drops at the server what was begun, unless the upload came to its end.
class BegunUpload {
public:
    explicit BegunUpload(PhotoInterface& service) : service_(service) {}
    ~BegunUpload() {
        if (kept_) return;
        try {
            service_.UploadPhotoFile("", UploadMode::Abort);
        } catch (...) {  // it cannot be reached: what it has it will drop itself
        }
    }
    BegunUpload(const BegunUpload&) = delete;
    BegunUpload& operator=(const BegunUpload&) = delete;
    void Keep() { kept_ = true; }

private:
    PhotoInterface& service_;
    bool kept_ = false;
};

class ShownProgress {
public:
    ShownProgress(frmProgress& window, const OwnerWindow* owner) : window_(window) {
        window_.Display(ShowMode::Modeless, owner);
    }
    ~ShownProgress() { window_.Unload(); }
    ShownProgress(const ShownProgress&) = delete;
    ShownProgress& operator=(const ShownProgress&) = delete;

private:
    frmProgress& window_;
};

}  // namespace

bool PhotoUpload::SendChunks(PhotoInterface& service, const std::string& packagePath) {
    files::Reader package(packagePath);
    std::uint64_t remaining = package.Length();
    while (remaining > 0) {
        const std::string chunk =
            package.Read(static_cast<std::size_t>(std::min<std::uint64_t>(remaining, ChunkSize)));
        if (chunk.empty()) throw FileError("read", packagePath, "it has become shorter");
        desktop_.ProcessPendingEvents();
        if (stopped_ || progress_.Cancel()) return false;
        AtServer([&] { service.UploadPhotoFile(std::as_bytes(std::span(chunk))); });
        remaining -= chunk.size();
    }
    return true;
}

UploadOutcome PhotoUpload::Send(const std::string& packagePath, const std::string& packageName,
                                const OwnerWindow* owner) {
    VelCommon& host = host_.Common();
    const auto service = AtServer([&] { return RequestService<PhotoInterface>(host); });
    AtServer([&] { service->UploadPhotoFile(packageName, UploadMode::Begin); });
    BegunUpload begun(*service);
    {
        const ShownProgress shown(progress_, owner);
        const bool whole = SendChunks(*service, packagePath);
        AtServer([&] { service->UploadPhotoFile("", UploadMode::End); });
        if (!whole) return UploadOutcome::Canceled;
    }
    const int result = AtServer(
        [&] { return service->BatchUpdate(host.ConnectionName(), packageName, BatchKind::PhotoPackage); });
    begun.Keep();  // applied or refused: the server has dealt with the package
    if (result != 0) throw UpdateRefused(result);
    return UploadOutcome::Applied;
}

}  // namespace lumarin
