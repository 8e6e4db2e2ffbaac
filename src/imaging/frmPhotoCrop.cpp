#include "imaging/frmPhotoCrop.h"

#include <algorithm>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Text.h"
#include "imaging/ProcessedMarker.h"
#include "imaging/Tones.h"

namespace lumarin {

namespace {

constexpr const char* Title = "Crop Photo";
constexpr int HelpPage = 2;
constexpr const char* NoValidPhoto = "The selected file is not a valid photo.";
constexpr double SmallestCaptureArea = 150000;  // square twips
constexpr int FewestCutPixels = 10;

std::string OpeningErrorText(const std::exception& problem) {
    const auto* error = dynamic_cast<const Error*>(&problem);
    if (error == nullptr || error->Number() == InvalidPictureError) return NoValidPhoto;
    const bool ofLibrary = error->Number() >= FirstImagingError && error->Number() <= LastImagingError;
    return ofLibrary || error->Number() == ApplicationErrorNumber ? error->Description() : NoValidPhoto;
}

/// A JPEG without its end marker can be opened, but not everybody who gets the photo later would take it.
bool HasEnd(std::string_view jpeg) {
    const std::size_t scan = jpeg.rfind("\xFF\xDA");
    const std::size_t end = jpeg.rfind("\xFF\xD9");
    return end != std::string_view::npos && (scan == std::string_view::npos || end > scan);
}

Message ErrorMessage(const std::string& text) {
    return {.text = text,
            .title = Title,
            .buttons = Buttons::Ok,
            .icon = Icon::Critical,
            .modality = Modality::System};
}

}  // namespace

frmPhotoCrop::frmPhotoCrop(Desktop& desktop, Imaging& imaging)
    : Form(desktop, "frmPhotoCrop"), imaging_(imaging) {
    SetCaption(Title);
    SetTopmost(true);
    SetHelpContext(HelpPage);
    SetInitialSize(12000, 8400);
    for (PictureBox* hidden : {&lbmBM, &LEAD1, &LEAD2, &picPhoto}) hidden->SetVisible(false);
    cmbView.SetVisible(false);
    lblPicture.SetVisible(false);
    cmdUseForAll.SetVisible(false);
    for (int i = 0; i < hsbControl.Size(); ++i) {
        hsbControl(i).SetRange(-500, 500, 25, 100);
        hsbControl(i).SetValue(0);
        hsbControl(i).Change = [this, i] { SliderChanged(i); };
        cmdZeroControl(i).Click = [this, i] { hsbControl(i).SetValue(0); };
    }
    ConnectStage();
    ConnectView();
    ConnectChanges();
    ConnectButtons();
}

void frmPhotoCrop::ConnectButtons() {
    cmdCenterWidth.Click = [this] {
        PlaceByWidth();
        BoxChanged(crop::Change::Placement);
    };
    cmdCenterHeight.Click = [this] {
        PlaceByHeight();
        BoxChanged(crop::Change::Placement);
    };
    cmdShowPhoto.Click = [this] { RunCommand("cmdShowPhoto", [this] { ShowPhoto(); }); };
    cmdCapture.Click = [this] { RunCommand("cmdCapture", [this] { Capture(); }); };
    cmdCancel.Click = [this] { RunCommand("cmdCancel", [this] { Finish(PhotoResult::Skip); }); };
    cmdAbort.Click = [this] { RunCommand("cmdAbort", [this] { Finish(PhotoResult::Cancel); }); };
}

void frmPhotoCrop::SetPhotoSize(const std::string& setting) {
    photoSize_ = ParsePhotoSize(setting);
    aspectRatio_ = static_cast<float>(photoSize_.TargetWidth) / static_cast<float>(photoSize_.TargetHeight);
}

void frmPhotoCrop::SetTwainPicture(PicturePtr picture) {
    lbmBM.SetImage(std::move(picture));
    Twain.Raise();
}

void frmPhotoCrop::SetViews(const std::vector<ComboBox::Item>& views) {
    cmbView.Clear();
    for (const ComboBox::Item& view : views) cmbView.AddItem(view.text, view.data);
}

void frmPhotoCrop::SelectView(const std::string& text) {
    const std::vector<ComboBox::Item>& views = cmbView.Items();
    cmbView.SetVisible(!views.empty());
    const auto found = std::find_if(views.begin(), views.end(), [&](const ComboBox::Item& view) {
        return text::ContainsIgnoringCase(view.text, text);
    });
    cmbView.SetListIndex(found == views.end() ? 0 : static_cast<int>(found - views.begin()));
}

void frmPhotoCrop::SelectViewOfFile(const std::string& path) {
    SelectView(path);
    const std::string name = text::AfterLastSeparator(path);
    std::size_t longest = 0;
    for (std::size_t i = 0; i < cmbView.Items().size(); ++i) {
        const std::string& view = cmbView.Items()[i].text;
        if (view.size() <= longest || !text::ContainsWords(name, view)) continue;
        longest = view.size();
        cmbView.SetListIndex(static_cast<int>(i));
    }
}

void frmPhotoCrop::SetProgress(const std::string& text) {
    lblPicture.SetCaption(text);
    lblPicture.SetVisible(!text.empty());
    cmdUseForAll.SetVisible(!text.empty());
}

PhotoResult frmPhotoCrop::CropPhoto(const std::string& sourcePath, CropMode mode, bool showAbort,
                                    const std::string& destinationPath, const OwnerWindow* owner) {
    destinationPath_ = destinationPath;
    try {
        const HourglassPointer hourglass(desktop());
        OpenPicture(sourcePath, mode, showAbort);
    } catch (const std::exception& problem) {
        if (Refused)
            Refused(sourcePath, OpeningErrorText(problem));
        else  // the window itself was never seen, so its owner stands for it
            desktop().ShowMessage(ErrorMessage(OpeningErrorText(problem)), dynamic_cast<const Form*>(owner));
        Unload();
        ReleasePicture();
        return PhotoResult::Skip;
    }
    tmrUseForAll.SetEnabled(forAll_.has_value());
    ShowModal(owner);
    Timer.SetEnabled(false);
    tmrUseForAll.SetEnabled(false);
    ReleasePicture();
    return result_;
}

void frmPhotoCrop::OpenPicture(const std::string& sourcePath, CropMode mode, bool showAbort) {
    Load();
    result_ = PhotoResult::Skip;  // however the window goes away, only a capture makes it Done
    sourcePath_ = sourcePath;
    passThrough_ = dragging_ = steppedByMouse_ = false;
    chosenView_ = {};
    cmdAbort.SetVisible(showAbort);
    for (int i = 0; i < hsbControl.Size(); ++i) {
        hsbControl(i).SetValue(0);
        lblControlValue(i).SetCaption("0");
    }
    hsbStraighten.SetValue(0);

    source_ = OpenSource(sourcePath, mode);
    passThrough_ = mode == CropMode::File && MayPassThrough(sourcePath);
    TurnPicture({});
    SelectViewOfFile(sourcePath);
    PlaceByWidth();
    history_.Start(PresentState());
    BoxChanged(crop::Change::Original);
    if (forAll_) UseAsBefore();
}

std::unique_ptr<SourcePicture> frmPhotoCrop::OpenSource(const std::string& sourcePath, CropMode mode) {
    switch (mode) {
        case CropMode::Twain:
            SetCaption("Photo from Twain");
            if (lbmBM.Image() == nullptr) throw ImagingError(InvalidPictureError, NoValidPhoto);
            return imaging_.FromMemory(lbmBM.Image());
        case CropMode::Clipboard: {
            SetCaption("Photo from Clipboard");
            PicturePtr picture = desktop().ClipboardHasPicture() ? desktop().ClipboardPicture() : nullptr;
            if (picture == nullptr) throw ApplicationError("Photo Crop", "No photo on the clipboard");
            return imaging_.FromMemory(std::move(picture));
        }
        case CropMode::File:
            break;
    }
    SetCaption(sourcePath);
    return imaging_.Open(sourcePath);
}

bool frmPhotoCrop::MayPassThrough(const std::string& sourcePath) const {
    return source_->Width() == photoSize_.TargetWidth && source_->Height() == photoSize_.TargetHeight &&
           source_->IsPlainJpeg() && photoSize_.MaxFileBytes > 0 &&
           files::FileLength(sourcePath) < static_cast<std::uint64_t>(photoSize_.MaxFileBytes) &&
           HasEnd(files::ReadAll(sourcePath));
}

void frmPhotoCrop::ReleasePicture() {
    LeavePhoto();
    source_.reset();
    previewBitmap_.reset();
    plainBitmap_.reset();
    lbmBM.SetImage(nullptr);
    Preview.SetImage(nullptr);
    tmrSharpen.SetEnabled(false);
}

void frmPhotoCrop::OnLoad() {
    ChooseSize();
    const Size screen = desktop().ScreenSize();
    MoveTo((screen.width - Bounds().width) / 2, (screen.height - Bounds().height) / 2);
}

void frmPhotoCrop::OnShow() { Shape1.SetFocus(); }

bool frmPhotoCrop::OnQueryClose(CloseReason reason) {
    if (reason != CloseReason::Frame) return true;
    cmdCancel.Press();
    return false;
}

void frmPhotoCrop::OnUnload() {
    Timer.SetEnabled(false);
    tmrUseForAll.SetEnabled(false);
    result_ = PhotoResult::Unloaded;
}

void frmPhotoCrop::SliderChanged(int index) {
    lblControlValue(index).SetCaption(std::to_string(hsbControl(index).Value()));
    Preview.SetTones(Tones());
    LeavePhoto();
    Note(index == 0 ? crop::Change::Intensity : crop::Change::Contrast);
}

ToneTable frmPhotoCrop::Tones() { return MakeToneTable(hsbControl(0).Value(), hsbControl(1).Value()); }

crop::MappedBox frmPhotoCrop::BoxInPicture() {
    return crop::MapToPicture(CropBox.Bounds(), Preview.Bounds(), previewScale_, source_->Width(),
                              source_->Height());
}

bool frmPhotoCrop::CanCapture(const crop::MappedBox& box) {
    if (CropBox.Width() * CropBox.Height() < SmallestCaptureArea)
        Refuse("The image capture area is to small.");
    else if (box.cut.width < FewestCutPixels || box.cut.height < FewestCutPixels)
        Refuse("Not enough of the image is selected.");
    else
        return true;
    return false;
}

void frmPhotoCrop::Capture() {
    Timer.SetEnabled(false);
    const crop::MappedBox box = BoxInPicture();
    if (!CanCapture(box)) return;
    if (cmbView.Visible()) chosenView_ = {cmbView.Text(), cmbView.ItemData()};
    try {
        const HourglassPointer hourglass(desktop());
        WritePhoto(box);
        Finish(PhotoResult::Done);
    } catch (const std::exception& problem) {
        const auto* error = dynamic_cast<const Error*>(&problem);
        const bool unreadable = error != nullptr && error->Number() == InvalidPictureError;
        const std::string text =
            unreadable ? NoValidPhoto : std::string("The photo was not saved. ") + problem.what();
        StopUsingForAll();
        desktop().ShowMessage(ErrorMessage(text), this);
        // What could not be written can be tried again; what cannot be read never becomes a photo.
        if (unreadable) Finish(PhotoResult::Skip);
    }
}

CaptureOrder frmPhotoCrop::OrderOf(const crop::MappedBox& box) {
    const double factor = Preview.Width() / CropBox.Width() * photoSize_.TargetWidth / source_->Width();
    const PixelRect place = crop::PlaceInPhoto(box, factor, photoSize_.TargetWidth, photoSize_.TargetHeight);
    CaptureOrder order;
    order.cut = box.cut;
    order.width = place.width;
    order.height = place.height;
    order.tones = Tones();
    order.canvasWidth = photoSize_.TargetWidth;
    order.canvasHeight = photoSize_.TargetHeight;
    order.left = place.left;
    order.top = place.top;
    order.caption = photoSize_.MarkerText;
    order.jpegQualityFactor = photoSize_.JpegQuality;
    return order;
}

void frmPhotoCrop::WritePhoto(const crop::MappedBox& box) {
    // A plain sum, deliberately: a box of the picture's size passes wherever it stands, as terms of
    // opposite sign cancel.
    const bool untouched = box.SumOfMargins() + hsbControl(0).Value() + hsbControl(1).Value() == 0;
    const bool marks = !photoSize_.MarkerText.empty();
    if (passThrough_ && untouched && turn_ == PictureTurn() &&
        (!marks || HasProcessedMarker(files::ReadAll(sourcePath_))))
        return files::Copy(sourcePath_, destinationPath_);

    const CaptureOrder order = OrderOf(box);
    if (marks)
        CaptureMarked(*source_, order, destinationPath_);
    else
        source_->Capture(order, destinationPath_);
}

void frmPhotoCrop::Refuse(const std::string& text) {
    StopUsingForAll();
    desktop().ShowMessage(
        {.text = text, .title = Title, .icon = Icon::Exclamation, .modality = Modality::System}, this);
    PlaceByWidth();
    BoxChanged(crop::Change::Placement);
}

void frmPhotoCrop::Finish(PhotoResult result) {
    result_ = result;
    Hide();
}

}  // namespace lumarin
