#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/Controls.h"
#include "forms/Desktop.h"
#include "imaging/CropGeometry.h"
#include "imaging/CropHistory.h"
#include "imaging/Imaging.h"
#include "imaging/PhotoResult.h"
#include "imaging/PhotoSize.h"

namespace lumarin {

/// Where the crop window takes its picture from.
enum class CropMode { File = 0, Twain = 1, Clipboard = 2 };

/// Turns a picture of any size into one photo of the configured size: the user frames a part of it and may
/// change intensity and contrast. The window stays loaded between photos; the picture is kept only while it
/// is shown. Preview and CropBox are children of the stage Shape1, in its coordinates.
class frmPhotoCrop : public Form {
public:
    frmPhotoCrop(Desktop& desktop, Imaging& imaging);

    Frame Shape1{*this,
                 "Shape1",
                 {.accessibleName = "Photo with crop box",
                  .accessibleDescription = "Arrow keys move the box, with Shift they size it; plus and minus "
                                           "size it, Home and End fit it."}};
    PictureBox Preview{*this, "Preview"};
    PictureBox picPhoto{*this, "picPhoto"};  ///< the photo as it will be, in place of the picture
    Shape CropBox{*this, "CropBox"};
    PictureBox lbmBM{*this, "lbmBM"};                         ///< hidden: the working picture
    PictureBox LEAD1{*this, "LEAD1"}, LEAD2{*this, "LEAD2"};  ///< hidden; the imaging port does their work
    Button cmdCenterHeight{*this, "cmdCenterHeight", {"Center &Height", "Make the box as high as the photo"}};
    Button cmdCenterWidth{*this, "cmdCenterWidth", {"Center &Width", "Make the box as wide as the photo"}};
    ControlArray<Button, 4> cmdMoveCropBox{*this,
                                           "cmdMoveCropBox",
                                           {{.toolTip = "Move the box left"},
                                            {.toolTip = "Move the box right"},
                                            {.toolTip = "Move the box up"},
                                            {.toolTip = "Move the box down"}}};
    lumarin::Timer Timer{*this, "Timer"};            ///< repeats a move button that is held
    lumarin::Timer tmrSharpen{*this, "tmrSharpen"};  ///< waits until the view has come to rest
    Label lblIntensity{*this, "lblIntensity", {"Intensity"}}, lblContrast{*this, "lblContrast", {"Contrast"}};
    ControlArray<Slider, 2> hsbControl{*this, "hsbControl"};  ///< intensity, contrast
    ControlArray<Label, 2> lblControlValue{*this,
                                           "lblControlValue",
                                           {{.caption = "0", .accessibleName = "Intensity value"},
                                            {.caption = "0", .accessibleName = "Contrast value"}}};
    ControlArray<Button, 2> cmdZeroControl{
        *this,
        "cmdZeroControl",
        {{.caption = "0", .toolTip = "Set the intensity back to zero", .accessibleName = "Intensity to zero"},
         {.caption = "0", .toolTip = "Set the contrast back to zero", .accessibleName = "Contrast to zero"}}};
    Button cmdAuto{*this, "cmdAuto", {"A&uto", "Set intensity and contrast by what the picture has"}};
    Label lblStraighten{*this, "lblStraighten", {"&Straighten"}};
    Slider hsbStraighten{*this, "hsbStraighten"};  ///< tenths of a degree
    Label lblStraightenValue{*this, "lblStraightenValue", {.accessibleName = "Degrees"}};
    Button cmdZeroStraighten{
        *this,
        "cmdZeroStraighten",
        {.caption = "0", .toolTip = "Do not straighten", .accessibleName = "Straightening to zero"}};
    Button cmdRotateLeft{*this, "cmdRotateLeft", {.toolTip = "Turn the picture to the left (Ctrl+L)"}};
    Button cmdRotateRight{*this, "cmdRotateRight", {.toolTip = "Turn the picture to the right (Ctrl+R)"}};
    Button cmdUndo{*this, "cmdUndo", {.toolTip = "Undo (Ctrl+Z)"}};
    Button cmdRedo{*this, "cmdRedo", {.toolTip = "Redo (Ctrl+Y)"}};
    Button cmdShowPhoto{
        *this, "cmdShowPhoto", {"Show &Photo", "See the photo as it will be, or the picture again"}};
    Button cmdOriginal{*this, "cmdOriginal", {"&Original", "Undo everything"}};
    Label lblSoft{*this, "lblSoft", {.accessibleName = "Sharpness of the photo"}};
    ComboBox cmbView{*this, "cmbView", {"&View:", "What the photo shows"}};
    Button cmdUseForAll{
        *this,
        "cmdUseForAll",
        {"Use for a&ll", "Capture this and all that follow with the same box, turn and sliders"}};
    lumarin::Timer tmrUseForAll{*this, "tmrUseForAll"};  ///< lets each picture be seen
    Label lblPicture{*this, "lblPicture", {.accessibleName = "Which picture of several"}};
    Button cmdCapture{*this, "cmdCapture", {"C&apture"}}, cmdCancel{*this, "cmdCancel", {"&Cancel"}};
    Button cmdAbort{*this, "cmdAbort", {"&Abort", "Give up this photo and all that follow"}};

    /// A picture has come from the scanner or camera into lbmBM.
    Event<> Twain;

    /// Takes the place of the message for a picture that cannot be opened, with its path and the message's
    /// text: an import of several files names them all together. Not set, the message is shown.
    std::function<void(const std::string& path, const std::string& text)> Refused;

    /// Takes the "Photo Size" setting; must come before `CropPhoto`. Throws as `ParsePhotoSize`.
    void SetPhotoSize(const std::string& setting);

    /// Opens the window modally on a picture: the file at `sourcePath`, the picture of `SetTwainPicture`, or
    /// the clipboard's. `Done`: the photo is at `destinationPath`, whole. Anything else: nothing was written
    /// there. Failures are shown to the user, or handed to `Refused`, and give `Skip`; nothing is thrown.
    /// `owner` may be null.
    PhotoResult CropPhoto(const std::string& sourcePath, CropMode mode, bool showAbort,
                          const std::string& destinationPath, const OwnerWindow* owner);

    void SetTwainPicture(PicturePtr picture);

    /// Ends what "Use for all" has begun; also for the pictures to come.
    void StopUsingForAll();

    /// Says which picture of how many the next one is ("Picture 2 of 5"); "" hides it.
    void SetProgress(const std::string& text);

    /// The entries of cmbView, in order; the number is the description code.
    void SetViews(const std::vector<ComboBox::Item>& views);
    /// Chooses the first view whose text contains `text` in any case, else the first; hides an empty cmbView.
    void SelectView(const std::string& text);
    /// As `SelectView` with the path; but a view whose text stands in the file's name as whole words wins,
    /// the longest of several.
    void SelectViewOfFile(const std::string& path);
    /// Text and number of the view that was chosen at the last capture; "" and 0 when there was none.
    const std::string& ChosenView() const { return chosenView_.text; }
    std::int32_t ChosenViewData() const { return chosenView_.data; }

protected:
    void OnLoad() override;
    void OnShow() override;
    bool OnQueryClose(CloseReason reason) override;
    void OnUnload() override;

private:
    void ConnectStage();
    void ConnectButtons();

    void OpenPicture(const std::string& sourcePath, CropMode mode, bool showAbort);
    std::unique_ptr<SourcePicture> OpenSource(const std::string& sourcePath, CropMode mode);
    bool MayPassThrough(const std::string& sourcePath) const;
    void ReleasePicture();

    void ConnectChanges();
    crop::State PresentState();
    void Note(crop::Change change);
    void Restore(const crop::State& state);
    void BoxChanged(crop::Change change);
    void ShowSoftness();
    void UseForAll();
    void UseAsBefore();
    void TakeInHand();
    void TurnBy(int quarters);
    void TurnPicture(const PictureTurn& turn);
    void Straightened();
    void SetTones(const ToneChange& tones);

    void ChooseSize();
    void CenterPreview();
    void StageResized();
    void StageMouseDown(const Mouse& mouse);
    void StageMouseMove(const Mouse& mouse);
    bool StageKey(const KeyDown& key);
    bool MoveByKey(const KeyDown& key);
    void TakeHold(const Mouse& mouse);
    void StepCropBox(int button);
    void PlaceByWidth();
    void PlaceByHeight();

    void ConnectView();
    double FittingScale() const;
    void FitView();
    void ShowView();
    void ZoomView(const ZoomStep& step);
    void PanView(const Mouse& mouse);
    crop::PreviewSize SharpSize() const;
    void ShowPicture();
    void Sharpen();

    void SliderChanged(int index);
    ToneTable Tones();

    crop::MappedBox BoxInPicture();
    CaptureOrder OrderOf(const crop::MappedBox& box);
    bool CanCapture(const crop::MappedBox& box);
    bool ShowsPhoto() const { return picPhoto.Visible(); }
    void ShowPhoto();
    void LeavePhoto();
    void PlacePhoto();
    void Capture();
    void WritePhoto(const crop::MappedBox& box);
    void Refuse(const std::string& text);
    void Finish(PhotoResult result);

    Imaging& imaging_;
    PhotoSize photoSize_;
    float aspectRatio_ = 1;  ///< of the finished photo
    float previewScale_ = 1;
    std::unique_ptr<SourcePicture> source_;
    PicturePtr previewBitmap_;  ///< before any adjustment, with the pixels that the screen has room for
    std::string sourcePath_;
    std::string destinationPath_;
    bool passThrough_ = false;
    PhotoResult result_ = PhotoResult::Skip;
    ComboBox::Item chosenView_;

    PicturePtr plainBitmap_;  ///< the same before it was straightened; null until it is needed
    PictureTurn turn_;
    crop::History history_;
    /// What all pictures of an import are to get, its box as shares of the preview's width.
    std::optional<crop::State> forAll_;
    bool sharp_ = true;       ///< what is seen comes straight from the source
    bool restoring_ = false;  ///< several controls are being set for one change

    double zoom_ = 1;     ///< of the view; 1 fills the stage
    double middleX_ = 0;  ///< what is seen in the middle of the stage
    double middleY_ = 0;
    bool spaceHeld_ = false;

    double lastX_ = 0;
    double lastY_ = 0;
    bool dragging_ = false;
    crop::HitZone hitZone_ = crop::HitZone::Outside;
    int repeatIndex_ = 0;
    bool steppedByMouse_ = false;
};

/// What the window says and does about one picture of several, until their import ends in whatever way.
class SeveralPictures {
public:
    explicit SeveralPictures(frmPhotoCrop& window) : window_(window) {}
    ~SeveralPictures() {
        window_.SetProgress("");
        window_.StopUsingForAll();
        window_.Refused = nullptr;
    }
    SeveralPictures(const SeveralPictures&) = delete;
    SeveralPictures& operator=(const SeveralPictures&) = delete;

private:
    frmPhotoCrop& window_;
};

}  // namespace lumarin
