#pragma once

#include <string>

#include "forms/Controls.h"
#include "forms/Desktop.h"
#include "forms/Picture.h"

namespace lumarin {

/// Shows one photo. The photo fills the window's width and keeps its proportions; a click on it closes the
/// window.
class frmPhotoViewer : public Form {
public:
    explicit frmPhotoViewer(Desktop& desktop);

    PictureBox imgImage{*this,
                        "imgImage",
                        {.toolTip = "Click, or press Esc, to close",
                         .accessibleName = "Photo",
                         .accessibleDescription = "A click or the Escape key closes the window."}};

    /// Loads the window with the picture at `percent` of its size, which may be above 100, and makes the
    /// inner area fit it exactly; the caller shows it. Throws Error for no picture or a size of nothing.
    void Init(PicturePtr picture, int percent, const std::string& caption);

    /// Height over width of the picture.
    float HeightRatio() const { return heightRatio_; }

    /// The largest `percent`, not above 100, at which a picture of this many pixels leaves a margin on the
    /// screen.
    static int FittingPercent(const Picture& picture, const Size& screen);

protected:
    void OnResize() override;

private:
    float heightRatio_ = 0;
};

}  // namespace lumarin
