#include "platform/qt/window/accessible_roles.h"

#include "platform/qt/window/status_panels.h"

#include <QAccessibleWidget>
#include <QFrame>

namespace {

// Qt takes a bare widget for a part of a window also where it is the window, in which a screen
// reader looks for all the rest; and a border around other widgets for a window.
QAccessible::Role RoleOf(const QWidget& widget) {
    const QMetaObject* kind = widget.metaObject();
    if (kind == &QFrame::staticMetaObject) return QAccessible::Pane;
    if (kind != &QWidget::staticMetaObject) return QAccessible::NoRole;
    if (widget.windowType() == Qt::Window) return QAccessible::Window;
    const bool isStatusBar = dynamic_cast<const StatusPanels*>(&widget);
    return isStatusBar ? QAccessible::StatusBar : QAccessible::NoRole;
}

QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* widget = object->isWidgetType() ? static_cast<QWidget*>(object) : nullptr;
    const QAccessible::Role role = widget ? RoleOf(*widget) : QAccessible::NoRole;
    return role == QAccessible::NoRole ? nullptr : new QAccessibleWidget(widget, role);
}

} // namespace

void InstallAccessibleParts() {
    QAccessible::installFactory(Make);
}
