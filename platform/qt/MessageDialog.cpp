#include "platform/qt/MessageDialog.h"

#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QStyle>

#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"

namespace lumarin::qt {

namespace {

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

const char* DrawingOf(Icon icon) {
    switch (icon) {
        case Icon::Critical:
            return "dialog-error";
        case Icon::Question:
            return "dialog-question";
        case Icon::Exclamation:
            return "dialog-warning";
        case Icon::Information:
            return "dialog-information";
        case Icon::None:
            break;
    }
    return "";
}

/// The style's own pictures are coarse on a fine screen. The box goes on knowing which icon it has.
void UseDrawing(QMessageBox& box, Icon icon) {
    auto* label = box.findChild<QLabel*>("qt_msgboxex_icon_label");
    const QIcon drawing = ToolIcon(DrawingOf(icon));
    const int side = box.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &box);
    if (label != nullptr && !drawing.isNull()) label->setPixmap(drawing.pixmap(side));
}

/// What closing the box means.
QMessageBox::StandardButton EscapeOf(QMessageBox::StandardButtons buttons) {
    for (const auto button : {QMessageBox::Cancel, QMessageBox::No})
        if (buttons.testFlag(button)) return button;
    return QMessageBox::Ok;
}

QMessageBox::StandardButton FirstOf(QMessageBox::StandardButtons buttons) {
    for (const auto button : {QMessageBox::Yes, QMessageBox::Retry})
        if (buttons.testFlag(button)) return button;
    return QMessageBox::Ok;
}

Answer AnswerOf(int button) {
    switch (button) {
        case QMessageBox::Cancel:
            return Answer::Cancel;
        case QMessageBox::Retry:
            return Answer::Retry;
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        default:
            return Answer::Ok;
    }
}

}  // namespace

Answer RunMessageBox(const Message& message, QWidget* owner) {
    const auto buttons = ButtonsOf(message.buttons);
    QMessageBox box(IconOf(message.icon), ToQt(message.title), ToQt(message.text), buttons, owner);
    box.setObjectName("messageBox");
    UseDrawing(box, message.icon);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setDefaultButton(FirstOf(buttons));
    box.setEscapeButton(EscapeOf(buttons));
    box.setWindowModality(Qt::ApplicationModal);
    box.setWindowFlag(Qt::WindowStaysOnTopHint, message.modality == Modality::System);
    return AnswerOf(box.exec());
}

}  // namespace lumarin::qt
