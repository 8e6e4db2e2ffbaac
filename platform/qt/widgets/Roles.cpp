#include "platform/qt/widgets/Roles.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "platform/qt/widgets/AnimationWidget.h"
#include "platform/qt/widgets/FrameWidget.h"
#include "platform/qt/widgets/PictureWidget.h"

namespace lumarin::qt {

namespace {

/// Null for a widget of somebody else's. Our widgets have no meta object of their own, so it is asked for the
/// names of those that they are derived from.
QAccessibleInterface* InterfaceOf(const QString&, QObject* object) {
    auto* widget = dynamic_cast<QWidget*>(object);
    if (dynamic_cast<PictureWidget*>(object) != nullptr)
        return new QAccessibleWidget(widget, QAccessible::Graphic);
    if (dynamic_cast<AnimationWidget*>(object) != nullptr)
        return new QAccessibleWidget(widget, QAccessible::Animation);
    if (dynamic_cast<FrameWidget*>(object) != nullptr)
        return new QAccessibleWidget(widget, QAccessible::Grouping);
    return nullptr;
}

}  // namespace

void NameRoles() { QAccessible::installFactory(InterfaceOf); }

}  // namespace lumarin::qt
