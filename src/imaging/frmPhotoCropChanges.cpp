// What a user makes of the picture in the crop window: turning, automatic tones, undo and redo.
#include <cstdlib>

#include "base/Numbers.h"
#include "base/PutBack.h"
#include "imaging/Tones.h"
#include "imaging/frmPhotoCrop.h"

namespace lumarin {

namespace {

constexpr int QuartersRound = 4;
constexpr int TenthsOfDegree = 10;
constexpr int MostTenths = 150;
constexpr int EachIsSeen = 1200;  // milliseconds
constexpr const char* UseForAllCaption = "Use for a&ll";
constexpr const char* StopCaption = "Stop a&ll";

std::string DegreesText(int tenths) {
    const int size = std::abs(tenths);
    return (tenths < 0 ? "-" : "") + std::to_string(size / TenthsOfDegree) + "." +
           std::to_string(size % TenthsOfDegree) + "\u00B0";
}

std::string SizeText(int width, int height) { return std::to_string(width) + " x " + std::to_string(height); }

}  // namespace

void frmPhotoCrop::ConnectChanges() {
    hsbStraighten.SetRange(-MostTenths, MostTenths, 1, TenthsOfDegree);
    hsbStraighten.SetValue(0);
    lblStraightenValue.SetCaption(DegreesText(0));
    hsbStraighten.Change = [this] { Straightened(); };
    cmdZeroStraighten.Click = [this] { hsbStraighten.SetValue(0); };
    cmdRotateLeft.Click = [this] { TurnBy(QuartersRound - 1); };
    cmdRotateRight.Click = [this] { TurnBy(1); };
    cmdAuto.Click = [this] {
        SetTones(AutomaticTones(*previewBitmap_));
        Note(crop::Change::Automatic);
    };
    cmdUndo.Click = [this] { Restore(history_.Undo()); };
    cmdRedo.Click = [this] { Restore(history_.Redo()); };
    tmrUseForAll.SetInterval(EachIsSeen);
    tmrUseForAll.Elapsed = [this] { cmdCapture.Press(); };
    cmbView.GotFocus = [this] { TakeInHand(); };
    cmdUseForAll.Click = [this] { UseForAll(); };
    cmdOriginal.Click = [this] {
        history_.Note(history_.Original(), crop::Change::Original);
        Restore(history_.Present());
    };
}

crop::State frmPhotoCrop::PresentState() {
    return {crop::Moved(CropBox.Bounds(), -Preview.Left(), -Preview.Top()),
            turn_,
            {hsbControl(0).Value(), hsbControl(1).Value()}};
}

void frmPhotoCrop::Note(crop::Change change) {
    if (restoring_ || previewBitmap_ == nullptr) return;
    TakeInHand();
    history_.Note(PresentState(), change);
    cmdUndo.SetEnabled(history_.CanUndo());
    cmdRedo.SetEnabled(history_.CanRedo());
    cmdOriginal.SetEnabled(!crop::Same(history_.Present(), history_.Original()));
}

void frmPhotoCrop::Restore(const crop::State& state) {
    const crop::State wanted = state;
    {
        const Meanwhile together(restoring_, true);
        if (wanted.turn != turn_) TurnPicture(wanted.turn);
        hsbStraighten.SetValue(RoundToWhole(wanted.turn.degrees * TenthsOfDegree));
        CropBox.Move(crop::Moved(wanted.box, Preview.Left(), Preview.Top()));
    }
    SetTones(wanted.tones);
    BoxChanged(crop::Change::Original);
}

void frmPhotoCrop::SetTones(const ToneChange& tones) {
    const Meanwhile together(restoring_, true);
    hsbControl(0).SetValue(tones.intensity);
    hsbControl(1).SetValue(tones.contrast);
}

void frmPhotoCrop::BoxChanged(crop::Change change) {
    LeavePhoto();
    Note(change);
    ShowSoftness();
}

void frmPhotoCrop::ShowSoftness() {
    if (previewBitmap_ == nullptr) return;
    const crop::MappedBox box = BoxInPicture();
    const double factor = Preview.Width() / CropBox.Width() * photoSize_.TargetWidth / source_->Width();
    const PixelRect place = crop::PlaceInPhoto(box, factor, photoSize_.TargetWidth, photoSize_.TargetHeight);
    const bool soft = box.cut.width > 0 && box.cut.height > 0 &&
                      (box.cut.width < place.width || box.cut.height < place.height);
    lblSoft.SetCaption(soft ? SizeText(box.cut.width, box.cut.height) + " pixels become " +
                                  SizeText(place.width, place.height) + ": the photo will look soft"
                            : "");
}

/// The same button stops.
void frmPhotoCrop::UseForAll() {
    if (forAll_) return StopUsingForAll();
    forAll_ = PresentState();
    const double width = Preview.Width();
    Rect& box = forAll_->box;
    box = {box.left / width, box.top / width, box.width / width, box.height / width};
    // Over a picture of another shape the box keeps its place relative to the middle.
    box.top -= Preview.Height() / width / 2;
    cmdUseForAll.SetCaption(StopCaption);
    cmdCapture.Press();
}

void frmPhotoCrop::StopUsingForAll() {
    forAll_.reset();
    tmrUseForAll.SetEnabled(false);
    cmdUseForAll.SetCaption(UseForAllCaption);
}

/// The user does something about a picture that would have gone on by itself.
void frmPhotoCrop::TakeInHand() {
    if (tmrUseForAll.Enabled()) StopUsingForAll();
}

void frmPhotoCrop::UseAsBefore() {
    crop::State state = *forAll_;
    TurnPicture(state.turn);
    const double width = Preview.Width();
    const Rect& box = forAll_->box;
    state.box = {box.left * width, box.top * width + Preview.Height() / 2, box.width * width,
                 box.height * width};
    Restore(state);
}

/// The box is placed as over a picture that has just been opened.
void frmPhotoCrop::TurnBy(int quarters) {
    TurnPicture({(turn_.quarters + quarters) % QuartersRound, turn_.degrees});
    PlaceByWidth();
    BoxChanged(crop::Change::Turn);
}

void frmPhotoCrop::TurnPicture(const PictureTurn& turn) {
    turn_ = turn;
    source_->Turn({turn.quarters, 0});
    const crop::PreviewSize size = crop::PreviewSizeOf(source_->Width(), source_->Height());
    source_->Turn(turn);
    // Straightening leaves the preview's place to fewer pixels of the same proportions.
    previewScale_ = crop::PreviewSizeOf(source_->Width(), source_->Height()).scale;
    Preview.Move({0, 0, size.width * TwipsPerPixel, size.height * TwipsPerPixel});
    CenterPreview();
    FitView();
    plainBitmap_.reset();
    ShowPicture();
}

/// While the slider moves, the picture that is there already is turned; when it rests, the source is.
void frmPhotoCrop::Straightened() {
    lblStraightenValue.SetCaption(DegreesText(hsbStraighten.Value()));
    if (restoring_ || previewBitmap_ == nullptr) return;
    const crop::PreviewSize plainSize = SharpSize();
    if (plainBitmap_ == nullptr) {
        const AtEnd asBefore([this] { source_->Turn(turn_); });
        source_->Turn({turn_.quarters, 0});
        plainBitmap_ = std::make_shared<const Picture>(source_->Preview(plainSize.width, plainSize.height));
    }
    turn_.degrees = static_cast<double>(hsbStraighten.Value()) / TenthsOfDegree;
    source_->Turn(turn_);
    previewScale_ = crop::PreviewSizeOf(source_->Width(), source_->Height()).scale;
    const auto quick = imaging_.FromMemory(plainBitmap_);
    quick->Turn({0, turn_.degrees});
    const crop::PreviewSize size = SharpSize();
    previewBitmap_ = std::make_shared<const Picture>(quick->Preview(size.width, size.height));
    Preview.SetImage(previewBitmap_);
    CropBox.SetGuides(Guides::Grid);
    sharp_ = false;
    ShowView();
    BoxChanged(crop::Change::Straighten);
}

}  // namespace lumarin
