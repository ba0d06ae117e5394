#include "platform/qt/system/guarded_application.h"

#include "platform/shared/call_handler.h"

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    bool accepted = true;
    CallGuarded([&] { accepted = QApplication::notify(receiver, event); });
    return accepted;
}
