#include "photo_window/ImportProgress.h"

namespace lumarin {

ImportProgress::ImportProgress(Desktop& desktop, Form& window, int count)
    : desktop_(desktop), window_(window), count_(count), progress_(desktop) {
    if (IsShown()) window_.SetEnabled(false);
}

ImportProgress::~ImportProgress() {
    if (!IsShown()) return;
    progress_.Unload();
    window_.SetEnabled(true);
}

bool ImportProgress::Next(const std::string& path) {
    if (!IsShown()) return true;
    if (Cancelled()) return false;
    ++begun_;
    progress_.ShowPicture(Text(), path, begun_ - 1, count_);
    if (!progress_.IsShown()) progress_.Show(&window_);
    desktop_.ProcessPendingEvents();
    return !Cancelled();
}

void ImportProgress::Came(PhotoResult result) {
    if (result == PhotoResult::Done) ++imported_;
    if (result == PhotoResult::Cancel) Stop();
}

std::string ImportProgress::Text() const {
    return IsShown() ? "Picture " + std::to_string(begun_) + " of " + std::to_string(count_) : std::string();
}

std::string ImportProgress::Outcome() const {
    return "Import cancelled: " + std::to_string(imported_) + " of " + std::to_string(count_) +
           " pictures imported";
}

}  // namespace lumarin
