#include "platform/qt/WindowLoader.h"

#include <QFile>
#include <QRegularExpression>
#include <QUiLoader>
#include <QWidget>

#include "base/Error.h"
#include "forms/Control.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"
#include "platform/qt/adapters/Adapters.h"
#include "platform/qt/widgets/AnimationWidget.h"
#include "platform/qt/widgets/FrameWidget.h"
#include "platform/qt/widgets/PictureWidget.h"
#include "platform/qt/widgets/ShapeWidget.h"

namespace lumarin::qt {

namespace {

/// Knows our own widgets besides the toolkit's.
class Loader final : public QUiLoader {
public:
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        QWidget* widget = nullptr;
        if (className == "PictureWidget") widget = new PictureWidget(parent);
        if (className == "FrameWidget") widget = new FrameWidget(parent);
        if (className == "ShapeWidget") widget = new ShapeWidget(parent);
        if (className == "AnimationWidget") widget = new AnimationWidget(parent);
        if (widget == nullptr) return QUiLoader::createWidget(className, parent, name);
        widget->setObjectName(name);
        return widget;
    }
};

std::string MismatchOf(const Control& control, const QWidget& window) {
    if (!NeedsWidget(control.Kind())) return {};
    const QString name = ToQt(control.ObjectName());
    const QList<QWidget*> widgets = window.findChildren<QWidget*>(name);
    const std::string needed = FromQt(WidgetNeededFor(control.Kind()));
    if (widgets.isEmpty()) return control.ObjectName() + ": there is no such widget (" + needed + ")";
    if (widgets.size() > 1) return control.ObjectName() + ": several widgets have this name";
    if (Fits(control.Kind(), *widgets.front())) return {};
    return control.ObjectName() + ": the widget is a " + widgets.front()->metaObject()->className() +
           ", not a " + needed;
}

}  // namespace

std::unique_ptr<QWidget> BuildWindow(const std::string& formName) {
    QFile design(":/windows/" + ToQt(formName) + ".ui");
    if (!design.open(QIODevice::ReadOnly))
        throw ApplicationError(formName + "-Load", "The window " + formName + " has no design");
    Loader loader;
    std::unique_ptr<QWidget> window(loader.load(&design));
    if (window == nullptr)
        throw ApplicationError(formName + "-Load",
                               "The design of " + formName + " is damaged: " + FromQt(loader.errorString()));
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
    return found;
}

std::vector<std::string> Mismatches(const Form& form) { return Mismatches(form, *BuildWindow(form.Name())); }

}  // namespace lumarin::qt
