#include "platform/qt/FormWindow.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

#include <utility>

#include "base/Error.h"
#include "base/PutBack.h"
#include "forms/Control.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/WindowLoader.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

const QString SizePart = QStringLiteral("size");
const QString MaximisedPart = QStringLiteral("maximised");
const std::vector<int> Yes{1};
const std::vector<int> No{0};

}  // namespace

FormWindow::FormWindow(Form& form, WindowSizes sizes, const WindowMemory* memory)
    : form_(&form), sizes_(sizes), layout_(form.Name(), memory), window_(BuildWindow(form.Name())) {
    if (const auto mismatches = Mismatches(form, *window_); !mismatches.empty()) {
        std::string all = "The window " + form.Name() + " does not fit its design:";
        for (const std::string& mismatch : mismatches) all += "\n" + mismatch;
        throw ApplicationError(form.Name() + "-Load", all);
    }
    Bind();
    LayOut();
}

FormWindow::~FormWindow() {
    Detach();
    adapters_.clear();
}

void FormWindow::Bind() {
    placedByCode_ = form_->Bounds().left != 0 || form_->Bounds().top != 0;
    for (Control* control : form_->Controls()) {
        auto* widget = NeedsWidget(control->Kind())
                           ? window_->findChild<QWidget*>(ToQt(control->ObjectName()))
                           : window_.get();
        adapters_.push_back(MakeAdapter(*control, *widget));
        adapters_.back()->UseLayout(layout_);
        adapters_.back()->Attach();
    }
    form_->Attach(this);
    window_->installEventFilter(this);
    StateChanged();
    if (placedByCode_) PlaceChanged();
    InnerSizeChanged();
}

/// The code may place controls before the window is ever seen, so the layouts must have worked by then.
void FormWindow::LayOut() {
    QSize size = OpeningSize().expandedTo(window_->minimumSizeHint());
    if (sizes_ == WindowSizes::WithinScreen)
        size = size.boundedTo(window_->screen()->availableSize().shrunkBy(assumedFrame_));
    window_->resize(size);
    opened_ = window_->size();
    layout_.FollowSplitters(*window_);
    if (layout_.Of(MaximisedPart) == Yes) window_->setWindowState(Qt::WindowMaximized);
    window_->grab(QRect(0, 0, 1, 1));  // makes the layouts of a hidden window work, as nothing else does
    laidOut_ = true;
    ReportPlaces();
    TellPlace();
}

QSize FormWindow::OpeningSize() const {
    const std::vector<int>& kept = layout_.Of(SizePart);
    if (kept.size() == 2) return {kept[0], kept[1]};
    return window_->testAttribute(Qt::WA_Resized) ? window_->size() : window_->sizeHint();
}

void FormWindow::KeepLayout() {
    const bool isMaximised = window_->isMaximized();
    const QSize size = isMaximised ? window_->normalGeometry().size() : window_->size();
    if (!opened_.isEmpty() && wasShown_) {
        const QSize opened = opened_.expandedTo(window_->minimumSizeHint());
        if (size != opened && !size.isEmpty()) layout_.Set(SizePart, {size.width(), size.height()});
        if (isMaximised || !layout_.Of(MaximisedPart).empty())
            layout_.Set(MaximisedPart, isMaximised ? Yes : No);
    }
    layout_.Keep();
}

void FormWindow::ReportPlaces() {
    for (const auto& adapter : adapters_) adapter->ReportPlace();
}

void FormWindow::Show(const Owner& owner, Qt::WindowModality modality) {
    if (window_->isVisible() && window_->windowModality() != modality) window_->hide();
    if (window_->isVisible()) {
        window_->raise();
    } else {
        window_->setWindowModality(modality);
        window_->setWindowFlag(Qt::WindowStaysOnTopHint, form_->Topmost());
        owner.Own(*window_);
        const QRect above = owner.Place(*window_);
        if (!wasShown_ && !placedByCode_ && !above.isEmpty()) PlaceOver(above);
    }
    wasShown_ = true;
    FocusFirst();
    window_->show();
    owner.Own(*window_);
    window_->activateWindow();
    // When it is hidden and shown again in one go, half of the toolkit has not noticed: it still has the
    // window as the active one and does not report it to the other half, for which hiding has ended that.
    if (QGuiApplication::focusWindow() == window_->windowHandle())
        QApplication::setActiveWindow(window_.get());
}

bool FormWindow::RunModal(const Owner& owner) {
    QEventLoop loop;
    const Meanwhile running(loop_, &loop);
    Show(owner, Qt::ApplicationModal);
    // Being activated may have hidden or unloaded it already.
    const bool ended = !window_->isVisible() || loop.exec() == 0;
    return ended && !window_->isVisible();
}

void FormWindow::Hide() {
    if (form_ != nullptr) KeepLayout();
    window_->hide();
    if (loop_ != nullptr) loop_->quit();
}

void FormWindow::Detach() {
    if (form_ == nullptr) return;
    // A form that is destroyed without having been unloaded may have outlived its host.
    if (!form_->IsLoaded()) KeepLayout();
    for (const auto& adapter : adapters_) adapter->Detach();
    form_->Attach(nullptr);
    form_ = nullptr;
    Hide();
}

void FormWindow::PlaceOver(const QRect& owner) {
    const QScreen* screen = QGuiApplication::screenAt(owner.center());
    const QRect room = (screen != nullptr ? screen : window_->screen())->availableGeometry();
    QRect place({}, window_->size().grownBy(assumedFrame_));
    place.moveCenter(owner.center());
    place.moveRight(qMin(place.right(), room.right()));
    place.moveBottom(qMin(place.bottom(), room.bottom()));
    place.moveTopLeft({qMax(place.left(), room.left()), qMax(place.top(), room.top())});
    window_->move(place.topLeft());
}

/// What the frame adds on each side. Before a window is seen nobody says so, but the program's windows have
/// frames of one kind.
QMargins FormWindow::LikelyFrame() {
    for (const QWindow* other : QGuiApplication::topLevelWindows())
        if (other->isVisible() && !other->frameMargins().isNull()) return other->frameMargins();
    return {};
}

/// The window with its frame. The toolkit's widget does not learn of a frame that comes late.
QRect FormWindow::Outer() const {
    const QWindow& window = *window_->windowHandle();
    return window.geometry().marginsAdded(window.frameMargins());
}

/// A frame that is larger than was assumed pushes no part of the window off the screen.
void FormWindow::CountFrame() {
    const QMargins frame = window_->windowHandle()->frameMargins();
    const QMargins more = frame - std::exchange(assumedFrame_, frame);
    if (more.isNull()) return;
    const QRect room = window_->screen()->availableGeometry();
    if (sizes_ == WindowSizes::WithinScreen)
        window_->resize(window_->size().boundedTo(room.size().shrunkBy(frame)));
    if (!opened_.isEmpty()) opened_ = opened_.boundedTo(window_->size());
    const QRect outer(Outer().topLeft(), window_->size().grownBy(frame));
    const QRect assumed(outer.topLeft(), outer.size().shrunkBy(more));
    const auto pushed = [](int edge, int before, int now) { return before > edge ? 0 : qMax(0, now - edge); };
    const QPoint back(pushed(room.right(), assumed.right(), outer.right()),
                      pushed(room.bottom(), assumed.bottom(), outer.bottom()));
    QWindow& window = *window_->windowHandle();
    if (!back.isNull()) window.setPosition(window.position() - back);
}

/// A window that is seen can be worked by the keyboard at once.
void FormWindow::FocusFirst() {
    const auto isUsable = [this](const QWidget* widget) {
        return widget->isEnabledTo(window_.get()) && widget->isVisibleTo(window_.get());
    };
    if (window_->focusWidget() != nullptr && isUsable(window_->focusWidget())) return;
    for (QWidget* next = window_->nextInFocusChain(); next != window_.get(); next = next->nextInFocusChain())
        if ((next->focusPolicy() & Qt::TabFocus) != 0 && isUsable(next))
            return next->setFocus(Qt::TabFocusReason);
}

void FormWindow::StateChanged() {
    if (form_ == nullptr) return;
    window_->setWindowTitle(ToQt(form_->Caption()));
    ShowEnabled();
}

void FormWindow::ShowEnabled() {
    if (form_->Enabled() == window_->isEnabled()) return;
    if (!form_->Enabled()) focusBefore_ = window_->focusWidget();
    window_->setEnabled(form_->Enabled());
    if (form_->Enabled() && focusBefore_ != nullptr) focusBefore_->setFocus(Qt::OtherFocusReason);
}

void FormWindow::PlaceChanged() {
    placedByCode_ = true;
    const QPoint place = ToPixels(form_->Bounds()).topLeft();
    if (!window_->isVisible()) return window_->move(place);
    const QMargins frame = window_->windowHandle()->frameMargins();
    window_->windowHandle()->setPosition(place + QPoint(frame.left(), frame.top()));
}

void FormWindow::InnerSizeChanged() {
    const QSize size = ToPixels(Rect{0, 0, form_->InnerSize().width, form_->InnerSize().height}).size();
    if (!laidOut_ || size.isEmpty()) return;
    opened_ = {};
    if (size != window_->size()) window_->resize(size);
}

bool FormWindow::HasUsersSize() const { return !layout_.Of(SizePart).empty() || window_->isMaximized(); }

void FormWindow::TellPlace() {
    ReportInnerSize();
    if (form_ == nullptr) return;
    const QRect known = ToPixels(form_->Bounds());
    const QRect place = wasShown_ ? Outer() : QRect(known.topLeft(), window_->size().grownBy(assumedFrame_));
    // What the code has set in twips stays exact as long as it means the same pixels.
    if (place == known) return;
    Rect twips = ToTwips(place);
    if (place.topLeft() == known.topLeft()) {
        twips.left = form_->Bounds().left;
        twips.top = form_->Bounds().top;
    }
    form_->Placed(twips);
}

void FormWindow::ReportInnerSize() {
    const Rect inner = ToTwips(QRect({}, window_->size()));
    const Size& known = form_->InnerSize();
    if (ToPixels(Rect{0, 0, known.width, known.height}).size() != window_->size())
        form_->InnerPlaced({inner.width, inner.height});
}

bool FormWindow::eventFilter(QObject*, QEvent* event) {
    if (form_ == nullptr) return false;
    switch (event->type()) {
        case QEvent::Close:
            return Close(*event);
        case QEvent::WindowActivate:
            CountFrame();
            form_->Activated();
            return false;
        case QEvent::Move:
        case QEvent::Resize:
            TellPlace();
            return false;
        case QEvent::KeyPress:
            if (static_cast<QKeyEvent*>(event)->matches(QKeySequence::HelpContents)) {
                form_->HelpPressed();
                return true;
            }
            if (qobject_cast<QDialog*>(window_.get()) == nullptr) return false;
            if (!static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel)) return false;
            window_->close();  // as the frame's close command: the form is asked
            return true;
        default:
            return false;
    }
}

bool FormWindow::Close(QEvent& event) {
    event.setAccepted(form_->Unload(CloseReason::Frame));
    return true;
}

}  // namespace lumarin::qt
