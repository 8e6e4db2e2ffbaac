#include "platform/qt/WindowLoader.h"

#include <QAbstractButton>
#include <QLabel>
#include <QRegularExpression>
#include <QTabWidget>

#include <map>

#include "base/Error.h"
#include "forms/Controls.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"
#include "platform/qt/adapters/Adapters.h"

namespace lumarin::qt {

namespace {

std::map<std::string, WindowMaker>& Designs() {
    static std::map<std::string, WindowMaker> designs;
    return designs;
}

/// A caption stands on a button or label itself, otherwise on the label that names the widget.
bool ShowsCaption(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
           qobject_cast<const QLabel*>(&widget) != nullptr || LabelOf(widget) != nullptr;
}

std::string CaptionMismatchOf(const Control& control, const QWidget& widget) {
    if (!control.Caption().empty() && !ShowsCaption(widget))
        return control.ObjectName() + ": no label shows its caption";
    const auto* tabs = qobject_cast<const QTabWidget*>(&widget);
    if (tabs == nullptr) return {};
    const std::size_t captions = static_cast<const TabStrip&>(control).Captions().size();
    if (captions == static_cast<std::size_t>(tabs->count())) return {};
    return control.ObjectName() + ": " + std::to_string(captions) + " captions for " +
           std::to_string(tabs->count()) + " pages";
}

std::string MismatchOf(const Control& control, const QWidget& window) {
    if (!NeedsWidget(control.Kind())) return {};
    const QString name = ToQt(control.ObjectName());
    const QList<QWidget*> widgets = window.findChildren<QWidget*>(name);
    const std::string needed = FromQt(WidgetNeededFor(control.Kind()));
    if (widgets.isEmpty()) return control.ObjectName() + ": there is no such widget (" + needed + ")";
    if (widgets.size() > 1) return control.ObjectName() + ": several widgets have this name";
    if (Fits(control.Kind(), *widgets.front())) return CaptionMismatchOf(control, *widgets.front());
    return control.ObjectName() + ": the widget is a " + widgets.front()->metaObject()->className() +
           ", not a " + needed;
}

/// A label that is no control shows the caption of the control that it names.
bool HasCaption(const QLabel& label, const Form& form) {
    if (form.Find(FromQt(label.objectName())) != nullptr) return true;
    const Control* named =
        label.buddy() != nullptr ? form.Find(FromQt(label.buddy()->objectName())) : nullptr;
    return named != nullptr && !named->Caption().empty();
}

}  // namespace

void AddDesign(const std::string& formName, WindowMaker maker) { Designs()[formName] = maker; }

std::vector<std::string> DesignNames() {
    std::vector<std::string> names;
    for (const auto& [name, maker] : Designs()) names.push_back(name);
    return names;
}

std::unique_ptr<QWidget> BuildWindow(const std::string& formName) {
    const auto design = Designs().find(formName);
    if (design == Designs().end())
        throw ApplicationError(formName + "-Load", "The window " + formName + " has no design");
    std::unique_ptr<QWidget> window = design->second();
    window->setObjectName(ToQt(formName));
    ApplyIconNames(*window);
    return window;
}

std::vector<std::string> Mismatches(const Form& form, const QWidget& window) {
    std::vector<std::string> found;
    for (const Control* control : form.Controls())
        if (std::string mismatch = MismatchOf(*control, window); !mismatch.empty())
            found.push_back(std::move(mismatch));

    static const QRegularExpression numbered("_\\d+$");
    for (const QObject* object : window.findChildren<QObject*>()) {
        const std::string name = FromQt(object->objectName());
        if (object->objectName().startsWith("qt_") || form.Find(name) != nullptr) continue;
        if (numbered.match(object->objectName()).hasMatch())
            found.push_back(name + ": a numbered name that no control has");
    }
    for (const QLabel* label : window.findChildren<QLabel*>())
        if (!HasCaption(*label, form))
            found.push_back(FromQt(label->objectName()) + ": a label without caption");
    return found;
}

std::vector<std::string> Mismatches(const Form& form) { return Mismatches(form, *BuildWindow(form.Name())); }

}  // namespace lumarin::qt
