#include "platform/qt/system/guarded_application.h"

#include "platform/shared/call_handler.h"

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    bool accepted = true;
    try {
        accepted = QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        ReportHandlerFailure(error.what());
    } catch (...) {
        ReportHandlerFailure("an exception of an unknown type");
    }
    return accepted;
}
