#include "platform/qt/window/accessible_roles.h"

#include "platform/qt/window/qt_status_bar.h"

#include <QAccessibleWidget>
#include <QFrame>

namespace {

// Qt reports a plain QWidget as a client area even if it is a window, where a screen reader expects
// the root of the tree; and a QFrame around other widgets as a border.
QAccessible::Role RoleOf(const QWidget& widget) {
    const QMetaObject* kind = widget.metaObject();
    if (kind == &QFrame::staticMetaObject) return QAccessible::Pane;
    if (kind != &QWidget::staticMetaObject) return QAccessible::NoRole;
    if (widget.windowType() == Qt::Window) return QAccessible::Window;
    const bool isStatusBar = dynamic_cast<const StatusPanels*>(&widget);
    return isStatusBar ? QAccessible::StatusBar : QAccessible::NoRole;
}

QAccessibleInterface* CreateInterface(const QString&, QObject* object) {
    auto* widget = object->isWidgetType() ? static_cast<QWidget*>(object) : nullptr;
    const QAccessible::Role role = widget ? RoleOf(*widget) : QAccessible::NoRole;
    return role == QAccessible::NoRole ? nullptr : new QAccessibleWidget(widget, role);
}

} // namespace

void InstallAccessibleRoles() {
    QAccessible::installFactory(CreateInterface);
}
