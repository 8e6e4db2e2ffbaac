#include "photo_window/PhotoUpload.h"

namespace lumarin {

int PhotoUpload::Apply(const std::string& packageName) {
    try {
        return AtServer([&] {
            return file_.Service().BatchUpdate(host_.Common().ConnectionName(), packageName,
                                               BatchKind::PhotoPackage);
        });
    } catch (...) {
        file_.Abandon();
        throw;
    }
}

UploadOutcome PhotoUpload::Send(const std::string& packagePath, const std::string& packageName,
                                const OwnerWindow* owner) {
    if (file_.Send(packagePath, packageName, owner) == FileSent::Cancelled) return UploadOutcome::Cancelled;
    const int result = Apply(packageName);
    file_.Keep();  // applied or refused: the server has dealt with the package
    if (result != 0) throw UpdateRefused(result);
    return UploadOutcome::Applied;
}

}  // namespace lumarin
