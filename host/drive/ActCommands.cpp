#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QJsonObject>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>

#include <memory>
#include <optional>

#include "host/drive/Commands.h"
#include "host/drive/DriveError.h"
#include "host/drive/Hands.h"
#include "host/drive/WidgetFinder.h"
#include "host/drive/WidgetState.h"

namespace host::commands {

namespace {

/// A step that does something to one usable control.
Step OnControl(const QString& name, const std::function<void(QWidget&)>& work) {
    const DriveTarget target = ParseTarget(name);
    return {.window = target.window, .act = [target, work] {
                QWidget& control = RequireControl(target);
                RequireUsableControl(control);
                hands::Activate(*control.window());
                work(control);
            }};
}

void TypeInstead(QLineEdit& edit, const QString& text) {
    if (edit.isReadOnly()) throw DriveError("Control \"" + edit.objectName() + "\" is read-only");
    edit.setFocus(Qt::OtherFocusReason);
    edit.selectAll();
    if (text.isEmpty())
        hands::PressKey(edit, ParseKey("Delete"));
    else
        hands::Type(edit, text);
}

void ChooseEntry(QComboBox& box, const QString& text) {
    const int entry = box.findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (entry < 0) throw DriveError("Control \"" + box.objectName() + "\" has no entry \"" + text + "\"");
    box.showPopup();
    QAbstractItemView* list = box.view();
    list->setCurrentIndex(box.model()->index(entry, box.modelColumn(), box.rootModelIndex()));
    hands::PressKey(*list, ParseKey("Enter"));
}

void Slide(QAbstractSlider& slider, const QString& text) {
    const int value = DriveNumber(text, "slider position");
    if (value < slider.minimum() || value > slider.maximum())
        throw DriveError("Control \"" + slider.objectName() + "\" goes from " +
                         QString::number(slider.minimum()) + " to " + QString::number(slider.maximum()));
    slider.setFocus(Qt::OtherFocusReason);
    slider.setValue(value);
}

/// Where a person aims: a check box that is wider than its text takes clicks only on its left.
QPoint ClickPoint(const QWidget& control) {
    QStyleOptionButton option;
    option.initFrom(&control);
    if (qobject_cast<const QCheckBox*>(&control))
        return control.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &control).center();
    if (qobject_cast<const QRadioButton*>(&control))
        return control.style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, &control).center();
    return control.rect().center();
}

void SwitchTo(QAbstractButton& button, const QString& text) {
    if (text != "0" && text != "1") throw DriveError("A button with two states is set to 0 or 1");
    if (button.isChecked() != (text == "1")) hands::Click(button, ClickPoint(button));
}

void SetControl(QWidget& control, const QString& text) {
    if (auto* edit = qobject_cast<QLineEdit*>(&control)) return TypeInstead(*edit, text);
    if (auto* box = qobject_cast<QComboBox*>(&control)) return ChooseEntry(*box, text);
    if (auto* slider = qobject_cast<QAbstractSlider*>(&control)) return Slide(*slider, text);
    if (auto* button = qobject_cast<QAbstractButton*>(&control); button != nullptr && button->isCheckable())
        return SwitchTo(*button, text);
    throw DriveError("Control \"" + control.objectName() + "\" cannot be set");
}

/// The part of the row that is on the screen, relative to the list's viewport.
QRect RowPlace(QAbstractItemView& list, const QString& rowText) {
    const int row = DriveNumber(rowText, "row");
    if (row < 0 || row >= list.model()->rowCount(list.rootIndex()))
        throw DriveError("Control \"" + list.objectName() + "\" has no row " + rowText);
    const QModelIndex cell = list.model()->index(row, 0, list.rootIndex());
    list.scrollTo(cell);
    const QRect place = list.visualRect(cell) & list.viewport()->rect();
    if (place.isEmpty())
        throw DriveError("Row " + rowText + " of \"" + list.objectName() + "\" is out of sight");
    return place;
}

QPoint RowPoint(QAbstractItemView& list, const QString& rowText) { return RowPlace(list, rowText).center(); }

QAbstractItemView& RequireList(QWidget& control) {
    if (auto* list = qobject_cast<QAbstractItemView*>(&control)) return *list;
    throw DriveError("Control \"" + control.objectName() + "\" is no list");
}

}  // namespace

Step Set(const QStringList& words) {
    return OnControl(words[0], [text = words[1]](QWidget& control) { SetControl(control, text); });
}

Step Key(const QStringList& words) {
    return OnControl(words[0],
                     [stroke = ParseKey(words[1])](QWidget& control) { hands::PressKey(control, stroke); });
}

Step Press(const QStringList& words) {
    return OnControl(words[0], [](QWidget& control) { hands::Click(control, ClickPoint(control)); });
}

Step Tool(const QStringList& words) {
    const DriveTarget target = ParseTarget(words[0]);
    return {.window = target.window, .act = [target] {
                QAction& tool = RequireTool(target);
                RequireUsable(RequireWindow(target.window));
                if (!tool.isVisible()) throw DriveError("Tool \"" + target.control + "\" is not visible");
                if (!tool.isEnabled()) throw DriveError("Tool \"" + target.control + "\" is disabled");
                hands::Activate(RequireWindow(target.window));
                tool.trigger();
            }};
}

Step Select(const QStringList& words) {
    return OnControl(words[0], [rows = words.mid(1)](QWidget& control) {
        QAbstractItemView& list = RequireList(control);
        hands::Click(*list.viewport(), RowPoint(list, rows[0]));
        for (const QString& row : rows.mid(1))
            hands::Click(*list.viewport(), RowPoint(list, row), Qt::ControlModifier);
    });
}

Step Reorder(const QStringList& words) {
    return OnControl(words[0], [row = words[1], before = words[2]](QWidget& control) {
        QAbstractItemView& list = RequireList(control);
        const int count = list.model()->rowCount(list.rootIndex());
        hands::Drag(*list.viewport(), RowPoint(list, row), [&]() -> QPoint {
            // In the first quarter of that row, or in the last quarter of the last one.
            const bool toEnd = before == QString::number(count);
            const QRect place = RowPlace(list, toEnd ? QString::number(count - 1) : before);
            const QPoint quarter(place.width() / 4, place.height() / 4);
            return toEnd ? place.bottomRight() - quarter : place.topLeft() + quarter;
        });
    });
}

Step Double(const QStringList& words) {
    return OnControl(words[0], [row = words[1]](QWidget& control) {
        QAbstractItemView& list = RequireList(control);
        hands::DoubleClick(*list.viewport(), RowPoint(list, row));
    });
}

Step Menu(const QStringList& words) {
    const auto seen = std::make_shared<std::optional<QJsonObject>>();
    Step step = OnControl(words[0], [](QWidget& control) {
        QWidget* surface = &control;
        if (auto* list = qobject_cast<QAbstractItemView*>(&control)) surface = list->viewport();
        hands::RightClick(*surface, surface->rect().center());
    });
    step.meanwhile = [seen] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) return;
        *seen = MenuState(*menu);
        menu->close();
    };
    step.result = [seen, name = words[0]]() -> QJsonValue {
        if (!seen->has_value()) throw DriveError("Control \"" + name + "\" opened no context menu");
        return **seen;
    };
    return step;
}

Step Drag(const QStringList& words) {
    const QPoint from(DriveNumber(words[1], "coordinate"), DriveNumber(words[2], "coordinate"));
    const QPoint to(DriveNumber(words[3], "coordinate"), DriveNumber(words[4], "coordinate"));
    return OnControl(words[0], [from, to](QWidget& control) { hands::Drag(control, from, to); });
}

Step Drop(const QStringList& words) {
    return OnControl(words[0],
                     [paths = words.mid(1)](QWidget& control) { hands::DropFiles(control, paths); });
}

Step Close(const QStringList& words) {
    const QString& name = words[0];
    return {.window = name, .act = [name] {
                QWidget& window = RequireWindow(name);
                RequireUsable(window);
                window.close();
            }};
}

}  // namespace host::commands
