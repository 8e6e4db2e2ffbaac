// The crop window's stage: how mouse, keys and buttons place the crop box.
#include <algorithm>
#include <array>

#include "base/Numbers.h"
#include "imaging/frmPhotoCrop.h"

namespace lumarin {

namespace {

constexpr int Step = 30;  // twips
constexpr int LongStep = 300;
constexpr int FirstRepeat = 500;  // milliseconds
constexpr int NextRepeats = 10;

struct Direction {
    int x = 0;
    int y = 0;
};
constexpr std::array<Direction, 4> Directions{{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}};

Direction DirectionOf(Key key) {
    switch (key) {
        case Key::Left:
            return Directions[0];
        case Key::Right:
            return Directions[1];
        case Key::Up:
            return Directions[2];
        case Key::Down:
            return Directions[3];
        default:
            return {};
    }
}

Pointer PointerOver(crop::HitZone zone) {
    switch (zone) {
        case crop::HitZone::LeftEdge:
        case crop::HitZone::RightEdge:
            return Pointer::SizeWestEast;
        case crop::HitZone::TopEdge:
        case crop::HitZone::BottomEdge:
            return Pointer::SizeNorthSouth;
        case crop::HitZone::TopLeft:
        case crop::HitZone::BottomRight:
            return Pointer::SizeFalling;
        case crop::HitZone::TopRight:
        case crop::HitZone::BottomLeft:
            return Pointer::SizeRising;
        case crop::HitZone::Inside:
            return Pointer::SizeAll;
        case crop::HitZone::Outside:
            break;
    }
    return Pointer::Default;
}

}  // namespace

void frmPhotoCrop::ConnectStage() {
    const auto onStage = [this](Mouse mouse) {
        mouse.x += Preview.Left();
        mouse.y += Preview.Top();
        return mouse;
    };
    Preview.MouseDown = [this, onStage](const Mouse& mouse) { StageMouseDown(onStage(mouse)); };
    Preview.MouseMove = [this, onStage](const Mouse& mouse) { StageMouseMove(onStage(mouse)); };
    const auto release = [this](const Mouse&) {
        if (dragging_) BoxChanged(crop::Change::Drag);
        dragging_ = false;
    };
    Preview.MouseUp = release;
    Shape1.MouseDown = [this](const Mouse& mouse) { StageMouseDown(mouse); };
    Shape1.MouseMove = [this](const Mouse& mouse) { StageMouseMove(mouse); };
    Shape1.MouseUp = release;
    picPhoto.MouseDown = [this](const Mouse&) { LeavePhoto(); };
    Shape1.Resize = [this] { StageResized(); };
    Shape1.KeyPressed = [this](const KeyDown& key, bool& used) { used = StageKey(key); };

    for (int i = 0; i < cmdMoveCropBox.Size(); ++i) {
        cmdMoveCropBox(i).MouseDown = [this, i] {
            repeatIndex_ = i;
            steppedByMouse_ = true;
            StepCropBox(i);
            Timer.SetInterval(FirstRepeat);
            Timer.SetEnabled(true);
        };
        cmdMoveCropBox(i).MouseUp = [this] { Timer.SetEnabled(false); };
        // A click that no press of the button came before is the keyboard's.
        cmdMoveCropBox(i).Click = [this, i] {
            if (!steppedByMouse_) StepCropBox(i);
            steppedByMouse_ = false;
        };
    }
    Timer.Elapsed = [this] {
        StepCropBox(repeatIndex_);
        Timer.SetInterval(NextRepeats);
    };
}

// The stage is the window's inside above the strip with the placement buttons, which takes the place of
// one and a half times their height: its middle is the middle of what the strip leaves.
void frmPhotoCrop::CenterPreview() {
    Preview.Move({(Shape1.Width() - Preview.Width()) / 2, (Shape1.Height() - Preview.Height()) / 2,
                  Preview.Width(), Preview.Height()});
}

void frmPhotoCrop::StageResized() {
    if (previewBitmap_ == nullptr) return;
    const Rect before = Preview.Bounds();
    CenterPreview();
    const double dX = Preview.Left() - before.left;
    const double dY = Preview.Top() - before.top;
    CropBox.Move(crop::Moved(CropBox.Bounds(), dX, dY));
    middleX_ += dX;
    middleY_ += dY;
    ShowView();
}

void frmPhotoCrop::StageMouseDown(const Mouse& mouse) {
    if (ShowsPhoto()) return LeavePhoto();
    lastX_ = mouse.x;
    lastY_ = mouse.y;
    if (mouse.button != MouseButton::Left) return;
    TakeHold(mouse);  // a touch presses without having moved here before
    dragging_ = true;
}

void frmPhotoCrop::StageMouseMove(const Mouse& mouse) {
    if (!dragging_) return TakeHold(mouse);
    if (spaceHeld_) return PanView(mouse);
    const int dX = RoundToWhole(mouse.x - lastX_);
    const int dY = RoundToWhole(mouse.y - lastY_);
    if (dX == 0 && dY == 0) return;
    const Rect before = CropBox.Bounds();
    const Rect after = crop::Dragged(before, hitZone_, dX, dY, aspectRatio_);
    CropBox.Move(after);
    ShowSoftness();
    // As far as the held edge has gone: a box at its smallest waits until the pointer is back at that edge.
    const bool rightEdge = crop::HoldsRight(hitZone_);
    const bool bottomEdge = crop::HoldsBottom(hitZone_);
    lastX_ += rightEdge ? after.Right() - before.Right() : after.left - before.left;
    lastY_ += bottomEdge ? after.Bottom() - before.Bottom() : after.top - before.top;
}

void frmPhotoCrop::TakeHold(const Mouse& mouse) {
    hitZone_ = ShowsPhoto() ? crop::HitZone::Outside : crop::HitTest(CropBox.Bounds(), mouse.x, mouse.y);
    const Pointer pointer = spaceHeld_ ? Pointer::Hand : PointerOver(hitZone_);
    Preview.SetMousePointer(pointer);
    Shape1.SetMousePointer(pointer);
}

bool frmPhotoCrop::StageKey(const KeyDown& key) {
    if (key.key == Key::Space) return spaceHeld_ = true;
    if (!MoveByKey(key)) return false;
    BoxChanged(key.key == Key::Home || key.key == Key::End ? crop::Change::Placement : crop::Change::Step);
    return true;
}

bool frmPhotoCrop::MoveByKey(const KeyDown& key) {
    const int step = key.control ? LongStep : Step;
    const Direction direction = DirectionOf(key.key);
    if (direction.x != 0 || direction.y != 0) {
        const int dX = direction.x * step;
        const int dY = direction.y * step;
        CropBox.Move(key.shift ? crop::Widened(CropBox.Bounds(), dX + dY, aspectRatio_)
                               : crop::Moved(CropBox.Bounds(), dX, dY));
        return true;
    }
    switch (key.key) {
        case Key::Plus:
            CropBox.Move(crop::Widened(CropBox.Bounds(), step, aspectRatio_));
            return true;
        case Key::Minus:
            CropBox.Move(crop::Widened(CropBox.Bounds(), -step, aspectRatio_));
            return true;
        case Key::Home:
            PlaceByWidth();
            return true;
        case Key::End:
            PlaceByHeight();
            return true;
        default:
            return false;
    }
}

void frmPhotoCrop::StepCropBox(int button) {
    const Direction direction = Directions.at(static_cast<std::size_t>(button));
    CropBox.Move(crop::Moved(CropBox.Bounds(), direction.x * Step, direction.y * Step));
    BoxChanged(crop::Change::Step);
}

void frmPhotoCrop::PlaceByWidth() { CropBox.Move(crop::CenteredByWidth(Preview.Bounds(), aspectRatio_)); }

void frmPhotoCrop::PlaceByHeight() { CropBox.Move(crop::CenteredByHeight(Preview.Bounds(), aspectRatio_)); }

}  // namespace lumarin
