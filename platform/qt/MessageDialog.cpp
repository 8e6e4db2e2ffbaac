#include "platform/qt/MessageDialog.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>

#include <utility>

#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"

namespace lumarin::qt {

namespace {

constexpr int WidestText = 640;      // pixels
constexpr int UnscrolledText = 360;  // the toolkit's own lines are at least as long
constexpr int TextMargin = 6;

QMessageBox::StandardButtons ButtonsOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::Ok:
            return QMessageBox::Ok;
        case Buttons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case Buttons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case Buttons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case Buttons::RetryCancel:
            return QMessageBox::Retry | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(Icon icon) {
    switch (icon) {
        case Icon::Critical:
            return QMessageBox::Critical;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Exclamation:
            return QMessageBox::Warning;
        case Icon::Information:
            return QMessageBox::Information;
        case Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

/// Drawing and name.
std::pair<const char*, const char*> LooksOf(Icon icon) {
    switch (icon) {
        case Icon::Critical:
            return {"dialog-error", "Error"};
        case Icon::Question:
            return {"dialog-question", "Question"};
        case Icon::Exclamation:
            return {"dialog-warning", "Warning"};
        case Icon::Information:
            return {"dialog-information", "Information"};
        case Icon::None:
            break;
    }
    return {"", ""};
}

/// A box that answers Cancel when it is closed, whatever buttons it has. The toolkit's takes the button that
/// refuses, which in a question of Yes and No is an answer that nobody has given.
class Box final : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

    /// A text that would push the buttons off the screen is scrolled.
    void BoundText();

protected:
    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        done(QMessageBox::Cancel);
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->matches(QKeySequence::Cancel)) return done(QMessageBox::Cancel);
        if (scrolled_ != nullptr && (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown))
            QCoreApplication::sendEvent(scrolled_->verticalScrollBar(), event);
        else
            QMessageBox::keyPressEvent(event);
    }

private:
    QScrollArea* scrolled_ = nullptr;
};

void Box::BoundText() {
    const QSize room = screen()->availableSize();
    const QSize most(qMin(WidestText, room.width() / 2), room.height() / 2);
    const QRect lines(0, 0, qMin(UnscrolledText, most.width()), 0);
    const QRect needed = fontMetrics().boundingRect(lines, Qt::TextWordWrap, text());
    auto* whole = findChild<QLabel*>("qt_msgbox_label");
    if (whole == nullptr || (needed.width() <= most.width() && needed.height() <= most.height())) return;
    auto* label = new QLabel(text());
    label->setObjectName("messageText");
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    label->setMargin(TextMargin);
    scrolled_ = new QScrollArea(this);
    scrolled_->setObjectName("messageScroll");
    scrolled_->setWidgetResizable(true);
    scrolled_->setWidget(label);
    scrolled_->setFixedSize(most);
    delete layout()->replaceWidget(whole, scrolled_);
    whole->hide();  // the box's `text()` is still its text
}

/// The style's own pictures are coarse on a fine screen. The box goes on knowing which icon it has.
void UseDrawing(QMessageBox& box, Icon icon) {
    auto* label = box.findChild<QLabel*>("qt_msgboxex_icon_label");
    const auto [drawn, name] = LooksOf(icon);
    const QIcon drawing = ToolIcon(drawn);
    const int side = box.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &box);
    if (label == nullptr) return;
    label->setAccessibleName(name);
    if (!drawing.isNull()) label->setPixmap(drawing.pixmap(side));
}

QMessageBox::StandardButton ButtonOf(Answer answer) {
    switch (answer) {
        case Answer::Cancel:
            return QMessageBox::Cancel;
        case Answer::Retry:
            return QMessageBox::Retry;
        case Answer::Yes:
            return QMessageBox::Yes;
        case Answer::No:
            return QMessageBox::No;
        case Answer::Ok:
            break;
    }
    return QMessageBox::Ok;
}

Answer EnterOf(const Message& message) {
    if (message.buttons == Buttons::RetryCancel) return message.enter.value_or(Answer::Retry);
    return message.enter.value_or(Answer::Ok);
}

Answer AnswerOf(int button) {
    for (const Answer answer : {Answer::Ok, Answer::Retry, Answer::Yes, Answer::No})
        if (button == ButtonOf(answer)) return answer;
    return Answer::Cancel;  // also when the program ends under the question
}

}  // namespace

Answer RunMessageBox(const Message& message, const Owner& owner) {
    Box box(IconOf(message.icon), ToQt(message.title), ToQt(message.text), ButtonsOf(message.buttons),
            owner.widget);
    box.setObjectName("messageBox");
    UseDrawing(box, message.icon);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.BoundText();
    box.setDefaultButton(ButtonOf(EnterOf(message)));
    box.setWindowModality(Qt::ApplicationModal);
    box.setWindowFlag(Qt::WindowStaysOnTopHint, message.modality == Modality::System);
    if (owner.widget == nullptr) owner.Own(box);
    const Answer answer = AnswerOf(box.exec());
    return message.buttons == Buttons::Ok ? Answer::Ok : answer;
}

}  // namespace lumarin::qt
