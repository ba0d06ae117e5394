#include "platform/shared/call_handler.h"
#include "platform/windows/base/win32.h"

void ReportHandlerFailure(const char* what) noexcept {
    OutputDebugStringA(what); // in a debugger's output window
}
