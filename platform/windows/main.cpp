#include "app/main_form.h"
#include "app/start_up.h"
#include "platform/windows/base/win32.h"
#include "platform/windows/win_ports.h"
#include "platform/windows/window/win_window.h"

#include <ole2.h>

namespace {

// The system's own folder only: a book's folder, the current one and the program's may hold
// libraries of anybody's.
void LoadLibrariesFromSystemOnly() {
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    SetDllDirectoryW(L"");
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    LoadLibrariesFromSystemOnly();
    SetErrorMode(
        SEM_FAILCRITICALERRORS); // an empty drive is an error to us, not a box of the system's
    OleInitialize(nullptr);      // for drops and the system's dialogs
    {
        MainForm form(MakeWinPorts());
        if (Form_Load(form)) RunMessageLoop(static_cast<WinWindow&>(*form.ports.window));
    }
    OleUninitialize();
    return 0;
}
