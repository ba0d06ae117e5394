#include "platform/shared/call_handler.h"

#include <QtGlobal>

void ReportHandlerFailure(const char* what) noexcept {
    qCritical("A handler failed: %s", what);
}
