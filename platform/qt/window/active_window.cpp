#include "platform/qt/window/active_window.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace {

bool BelongsTo(const QWidget& window, const QObject* menu) {
    while (menu && menu != &window)
        menu = menu->parent();
    return menu;
}

} // namespace

void TakeNoteOfActiveWindow(QWindow* focused) {
    // Some window systems give a menu the focus, too.
    if (!focused || focused->type() == Qt::Popup || !QApplication::activePopupWidget()) return;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto window = std::ranges::find(windows, focused, &QWidget::windowHandle);
    if (window == windows.end()) return;
    while (QWidget* menu = QApplication::activePopupWidget())
        if (BelongsTo(**window, menu) || !menu->close()) break;
    QApplication::setActiveWindow(*window);
}
