#include "platform/qt/window/window_icon.h"

#include <QTimer>
#include <QWidget>

namespace {

constexpr int iconDelay = 300; // milliseconds

} // namespace

QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 64, 128})
        icon.addFile(QStringLiteral(":/icons/norvaset-%1.png").arg(size), QSize(size, size));
    return icon;
}

void SetIconWhenIdle(QWidget& window) {
    QTimer::singleShot(iconDelay, &window, [&window] { window.setWindowIcon(ProgramIcon()); });
}
