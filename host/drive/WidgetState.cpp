#include "host/drive/WidgetState.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTabWidget>

#include <set>

#include "platform/qt/widgets/PictureWidget.h"
#include "platform/qt/widgets/ShapeWidget.h"

namespace host {

namespace {

QJsonArray Texts(const QStringList& texts) { return QJsonArray::fromStringList(texts); }

void AddListView(const QAbstractItemView& view, QJsonObject& state) {
    const QAbstractItemModel* model = view.model();
    if (model == nullptr) return;
    QJsonArray columns, rows;
    for (int column = 0; column < model->columnCount(); ++column)
        columns += model->headerData(column, Qt::Horizontal).toString();
    for (int row = 0; row < model->rowCount(); ++row) {
        QJsonArray cells;
        for (int column = 0; column < model->columnCount(); ++column)
            cells += model->index(row, column).data().toString();
        rows += cells;
    }
    std::set<int> chosen;
    for (const QModelIndex& cell : view.selectionModel()->selectedIndexes()) chosen.insert(cell.row());
    state["columns"] = columns;
    state["rows"] = rows;
    state["selected"] = chosen.empty() ? -1 : *chosen.begin();
    if (chosen.size() > 1) state["allSelected"] = QJsonArray::fromVariantList({chosen.begin(), chosen.end()});
}

void AddComboBox(const QComboBox& box, QJsonObject& state) {
    QJsonArray items;
    for (int item = 0; item < box.count(); ++item) items += box.itemText(item);
    state["items"] = items;
    state["selected"] = box.currentIndex();
    state["text"] = box.currentText();
}

void AddButton(const QAbstractButton& button, QJsonObject& state) {
    state["caption"] = button.text();
    if (button.isCheckable()) state["checked"] = button.isChecked();
}

template <class Ranged>
void AddRange(const Ranged& widget, QJsonObject& state) {
    state["value"] = widget.value();
    state["minimum"] = widget.minimum();
    state["maximum"] = widget.maximum();
}

void AddTabs(const QTabWidget& tabs, QJsonObject& state) {
    QStringList captions;
    for (int tab = 0; tab < tabs.count(); ++tab) captions += tabs.tabText(tab);
    state["tabs"] = Texts(captions);
    state["selected"] = tabs.currentIndex();
}

QJsonArray Place(const QRect& place) { return {place.x(), place.y(), place.width(), place.height()}; }

QString IconName(QMessageBox::Icon icon) {
    switch (icon) {
        case QMessageBox::Critical:
            return "critical";
        case QMessageBox::Question:
            return "question";
        case QMessageBox::Warning:
            return "exclamation";
        case QMessageBox::Information:
            return "information";
        case QMessageBox::NoIcon:
            break;
    }
    return "none";
}

}  // namespace

QString PlainCaption(const QString& caption) {
    QString text = caption;
    text.replace("&&", QChar(1));
    text.remove('&');
    return text.replace(QChar(1), "&");
}

QJsonObject WindowState(const QWidget& window) {
    QStringList names;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        if (!name.isEmpty() && !name.startsWith("qt_") && widget->window() == &window) names += name;
    }
    const QWidget* focus = window.focusWidget();
    return {{"caption", window.windowTitle()},
            {"enabled", window.isEnabled()},
            {"visible", window.isVisible()},
            {"focus", focus != nullptr ? focus->objectName() : QString()},
            {"controls", Texts(names)}};
}

QJsonObject ControlState(const QWidget& control) {
    const QPoint corner = control.mapTo(control.window(), QPoint(0, 0));
    QJsonObject state{{"enabled", control.isEnabled()},
                      {"visible", control.isVisible()},
                      {"place", Place(QRect(corner, control.size()))}};
    if (const auto* edit = qobject_cast<const QLineEdit*>(&control)) state["text"] = edit->text();
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(&control)) state["text"] = edit->toPlainText();
    if (const auto* label = qobject_cast<const QLabel*>(&control)) state["text"] = label->text();
    if (const auto* group = qobject_cast<const QGroupBox*>(&control)) state["caption"] = group->title();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) AddButton(*button, state);
    if (const auto* box = qobject_cast<const QComboBox*>(&control)) AddComboBox(*box, state);
    if (const auto* slider = qobject_cast<const QAbstractSlider*>(&control)) AddRange(*slider, state);
    if (const auto* bar = qobject_cast<const QProgressBar*>(&control)) AddRange(*bar, state);
    if (const auto* tabs = qobject_cast<const QTabWidget*>(&control)) AddTabs(*tabs, state);
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&control)) AddListView(*view, state);
    if (const auto* picture = dynamic_cast<const lumarin::qt::PictureWidget*>(&control))
        state["picture"] = Place(picture->PictureRect().translated(corner));
    if (const auto* shape = dynamic_cast<const lumarin::qt::ShapeWidget*>(&control))
        state["box"] =
            Place(shape->Box().translated(shape->parentWidget()->mapTo(control.window(), QPoint(0, 0))));
    return state;
}

QJsonObject ToolState(const QAction& tool) {
    return {{"name", tool.objectName()},
            {"caption", tool.text()},
            {"enabled", tool.isEnabled()},
            {"visible", tool.isVisible()},
            {"checked", tool.isChecked()}};
}

QJsonObject MenuState(const QMenu& menu) {
    QJsonArray tools;
    for (const QAction* action : menu.actions()) {
        if (action->isSeparator()) continue;
        QJsonObject tool = ToolState(*action);
        if (const QMenu* group = action->menu()) tool["tools"] = MenuState(*group)["tools"];
        tools += tool;
    }
    return {{"tools", tools}};
}

QJsonObject MessageState(const QMessageBox& box) {
    QStringList captions;
    for (const QAbstractButton* button : box.buttons()) captions += PlainCaption(button->text());
    return {{"text", box.text()},
            {"title", box.windowTitle()},
            {"buttons", Texts(captions)},
            {"icon", IconName(box.icon())}};
}

}  // namespace host
