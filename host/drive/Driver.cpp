#include "host/drive/Driver.h"

#include <QApplication>
#include <QEvent>
#include <QJsonObject>
#include <QMessageBox>
#include <QWidget>

#include <algorithm>
#include <utility>

#include "host/drive/Commands.h"
#include "host/drive/DriveError.h"
#include "host/drive/DriveLine.h"
#include "host/drive/WidgetFinder.h"

namespace host {

namespace {

constexpr int ActionPatience = 30000;
constexpr int QuitInterval = 10;

/// How many handlers were at work when a window was shown. A modal one waits for the user when no more are.
constexpr const char* HandlersBelow = "handlersBelow";

bool IsWindowEvent(QEvent::Type type) {
    return type == QEvent::Show || type == QEvent::Hide || type == QEvent::EnabledChange;
}

bool IsOrdinaryWindow(const QWidget& widget) {
    const Qt::WindowType type = widget.windowType();
    return type == Qt::Window || type == Qt::Dialog;
}

}  // namespace

Driver::Driver() {
    patience_.setSingleShot(true);
    QObject::connect(&patience_, &QTimer::timeout, this, [this] { BeginLate(); });
    qApp->installEventFilter(this);
}

void Driver::Submit(const QString& line, Answered answered) {
    pending_ = Pending{};
    pending_->answered = std::move(answered);
    pending_->number = ++lastNumber_;
    try {
        pending_->step = MakeStep(SplitDriveLine(line));
    } catch (const DriveError& error) {
        pending_->step.read = [error]() -> QJsonValue { throw error; };
    }
    patience_.start(pending_->step.patience);
    // What earlier commands have set going by posted events comes first.
    CheckSoon();
}

bool Driver::eventFilter(QObject* object, QEvent* event) {
    if (!IsWindowEvent(event->type()) || !object->isWidgetType()) return false;
    auto* widget = static_cast<QWidget*>(object);
    if (!widget->isWindow()) return false;
    if (event->type() == QEvent::Show && IsOrdinaryWindow(*widget)) {
        widget->setProperty(HandlersBelow, handlersAtWork_);
        if (handlersAtWork_ > 0) appeared_ += widget;
        if (pending_ && pending_->acting) pending_->windowAppeared = true;
    }
    CheckSoon();
    return false;
}

void Driver::CheckSoon() {
    if (checkPosted_) return;
    checkPosted_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            checkPosted_ = false;
            Check();
        },
        Qt::QueuedConnection);
}

void Driver::Check() {
    if (end_) return GoOnQuitting();
    if (!pending_) return;
    if (!pending_->acting) {
        if (MayBegin()) Begin();
        return;
    }
    if (pending_->step.meanwhile) pending_->step.meanwhile();
    if (pending_ && IsAnswerable()) AnswerAction();
}

/// While a handler is at work without asking the user, only the windows that it has brought up (a progress
/// window) can be spoken to, and a window that the program has disabled is left alone.
bool Driver::MayBegin() const {
    const Step& step = pending_->step;
    if (step.ready && !step.ready()) return false;
    if (IsUserAwaited()) return true;
    if (step.untilIdle && handlersAtWork_ > 0) return false;
    if (step.window.isEmpty()) return true;
    QWidget* window = TopLevelWindow(step.window);
    if (window != nullptr && window->isVisible() && !window->isEnabled()) return false;
    if (window != nullptr && window == WaitingForUser()) return false;
    return handlersAtWork_ == 0 || appeared_.contains(QPointer<QWidget>(window));
}

bool Driver::IsUserAwaited() const {
    const QWidget* waiting = WaitingForUser();
    if (waiting == nullptr) return false;
    const QVariant below = waiting->property(HandlersBelow);
    return !below.isValid() || handlersAtWork_ <= below.toInt();
}

void Driver::Begin() {
    patience_.stop();
    Step& step = pending_->step;
    if (step.act) {
        pending_->acting = true;
        pending_->waitingBefore = WaitingForUser();
        const quint64 number = pending_->number;
        QMetaObject::invokeMethod(
            this, [this, number] { Act(number); }, Qt::QueuedConnection);
        return;
    }
    try {
        Answer(step.read());
    } catch (const DriveError& error) {
        AnswerError(error.Reason());
    }
}

/// Time is up: a command that has not begun does so now and says itself what is in its way; an action
/// whose handler has returned is answered although an earlier one is still at work.
void Driver::BeginLate() {
    if (!pending_) return;
    if (pending_->acting)
        AnswerAction();
    else
        Begin();
}

void Driver::Act(quint64 number) {
    const std::function<void()> act = pending_->step.act;
    QString failure;
    if (++handlersAtWork_ == 1) appeared_.clear();
    try {
        act();
    } catch (const DriveError& error) {
        failure = error.Reason();
    }
    if (--handlersAtWork_ == 0) appeared_.clear();
    if (pending_ && pending_->number == number) {
        pending_->returned = true;
        pending_->error = failure;
        patience_.start(ActionPatience);
    }
    CheckSoon();
}

bool Driver::IsAnswerable() const {
    const QWidget* waiting = WaitingForUser();
    if (pending_->returned)
        return !pending_->error.isEmpty() || handlersAtWork_ == 0 || IsUserAwaited() ||
               pending_->windowAppeared;
    if (pending_->step.result) return false;
    return pending_->windowAppeared || (waiting != nullptr && waiting != pending_->waitingBefore);
}

void Driver::AnswerAction() {
    patience_.stop();
    if (!pending_->error.isEmpty()) return AnswerError(pending_->error);
    try {
        Answer(pending_->step.result ? pending_->step.result() : QJsonObject{{"ok", true}});
    } catch (const DriveError& error) {
        AnswerError(error.Reason());
    }
}

void Driver::Answer(const QJsonValue& answer) {
    patience_.stop();
    const Answered answered = std::exchange(pending_, std::nullopt)->answered;
    answered(answer);
}

void Driver::AnswerError(const QString& reason) {
    hadErrors_ = true;
    Answer(QJsonObject{{"error", reason}});
}

void Driver::Quit(std::function<void()> end) {
    end_ = std::move(end);
    CheckSoon();
}

/// Looks again by a timer: a posted event that posts itself again would keep a handler from going on that
/// lets pending events run.
void Driver::GoOnQuitting() {
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    } else if (QMessageBox* box = WaitingMessage()) {
        askedWhileQuitting_ = true;
        box->reject();
    } else if (QWidget* modal = QApplication::activeModalWidget();
               modal != nullptr && !(askedWhileQuitting_ && modal == closed_)) {
        closed_ = modal;
        askedWhileQuitting_ = false;
        modal->close();
    } else if (modal != nullptr) {
        // Its question whether it may close was dismissed, and so it stays: the program ends all the same.
        if (const auto end = std::exchange(end_, [] {})) end();
    } else if (handlersAtWork_ == 0) {
        // Ending may ask once more; those questions are dismissed as well.
        if (const auto end = std::exchange(end_, [] {})) end();
    }
    QTimer::singleShot(QuitInterval, this, [this] { CheckSoon(); });
}

}  // namespace host
