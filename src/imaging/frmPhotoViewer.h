#pragma once

#include <string>

#include "forms/Controls.h"
#include "forms/Desktop.h"
#include "forms/Picture.h"

namespace lumarin {

/// Shows one photo of several. The photo fills the window's width and keeps its proportions; the view, a lens
/// over that, shows all of it, its pixels, or anything nearer. A click on the photo closes the window.
class frmPhotoViewer : public Form {
public:
    explicit frmPhotoViewer(Desktop& desktop);

    Frame fraStage{
        *this,
        "fraStage",
        {.accessibleName = "Photo",
         .accessibleDescription = "Left and Right lead to the other photos, plus and minus zoom, 0 "
                                  "shows all of the photo, 1 its pixels, Escape closes."}};
    PictureBox imgImage{*this,
                        "imgImage",
                        {.toolTip = "Click, or press Esc, to close",
                         .accessibleName = "Photo",
                         .accessibleDescription = "A click or the Escape key closes the window."}};
    Label lblPhoto{*this, "lblPhoto", {.accessibleName = "Which photo"}};
    lumarin::Timer tmrClick{*this, "tmrClick"};  ///< waits for the second click of a double click

    /// The user wants the photo at this place, counted from 0; there is one.
    Event<int> Wanted;

    /// Loads the window with the picture at `percent` of its size, which may be above 100, and makes the
    /// inner area fit it exactly; the caller shows it. Throws Error for no picture or a size of nothing.
    void Init(PicturePtr picture, int percent, const std::string& caption);

    /// Shows another photo in the window as it is; null for one that cannot be shown.
    void ShowPhoto(PicturePtr picture, const std::string& caption);
    /// Which photo of how many it is, counted from 0, and what it shows.
    void SetPlace(int place, int count, const std::string& view);

    /// Height over width of the picture.
    float HeightRatio() const { return heightRatio_; }

    /// The largest `percent` at which a picture of this many pixels leaves a margin on the screen; small ones
    /// are not enlarged without end.
    static int FittingPercent(const Picture& picture, const Size& screen);

protected:
    void OnShow() override { fraStage.SetFocus(); }
    void OnResize() override;

private:
    void ConnectMouse();
    bool KeyPressed(const KeyDown& pressed);
    bool Browse(const KeyDown& pressed);
    bool MoveView(const KeyDown& pressed);
    void GoTo(int place);

    double FittingScale() const;
    double PixelZoom() const;
    bool IsLargerThanWindow() const;
    void ZoomTo(double zoom, double x, double y);
    void ZoomBy(double factor);
    void ZoomToPixels(double x, double y);
    void ShowView();
    void ShowText();

    void MouseWentDown(const Mouse& mouse);
    void MouseMoved(const Mouse& mouse);
    void MouseWentUp();

    float heightRatio_ = 0;
    int place_ = 0;
    int count_ = 0;
    std::string view_;
    double zoom_ = 1;     ///< 1 shows all of the photo
    double middleX_ = 0;  ///< what of imgImage is seen in the middle of the window
    double middleY_ = 0;

    bool opening_ = false;  ///< the second click of the double click that has opened it may still come
    bool isClick_ = false;  ///< the button that is held has neither moved the photo nor zoomed it
    bool held_ = false;
    double heldX_ = 0;
    double heldY_ = 0;
};

}  // namespace lumarin
