#pragma once

#include <string>

#include "imaging/PhotoResult.h"
#include "photo_window/frmImport.h"

namespace lumarin {

/// An import that shows how far it is and can be cancelled between two pictures, until it ends in whatever
/// way. One picture alone needs none of that: the crop window opens at once.
class ImportProgress {
public:
    /// The window takes no input meanwhile. Both outlive this.
    ImportProgress(Desktop& desktop, Form& window, int count);
    ~ImportProgress();
    ImportProgress(const ImportProgress&) = delete;
    ImportProgress& operator=(const ImportProgress&) = delete;

    /// The next picture is to come; false when the user does not want it any more.
    bool Next(const std::string& path);
    /// This has become of it.
    void Came(PhotoResult result);
    void Stop() { progress_.Cancel(); }

    bool Cancelled() const { return IsShown() && progress_.Cancelled(); }
    /// "Picture 3 of 12"; "" for one alone.
    std::string Text() const;
    /// What a cancelled import has come to.
    std::string Outcome() const;

private:
    bool IsShown() const { return count_ > 1; }

    Desktop& desktop_;
    Form& window_;
    const int count_;
    int begun_ = 0;
    int imported_ = 0;
    frmImport progress_;
};

}  // namespace lumarin
