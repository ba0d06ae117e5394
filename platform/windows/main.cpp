#include "app/main_form.h"
#include "app/start_up.h"
#include "platform/windows/base/win32.h"
#include "platform/windows/win_ports.h"
#include "platform/windows/window/win_window.h"

#include <ole2.h>

#include <cstdlib>
#include <exception>

#ifdef __MINGW32__
// In the place of libstdc++'s, which writes the exception's name to a console that is not there and
// brings 60 KB to read it.
namespace __gnu_cxx {
void __verbose_terminate_handler() {
    std::abort();
}
} // namespace __gnu_cxx
#endif

namespace {

// From System32 only: anybody may have put DLLs into the current folder, a book's or the program's.
void LoadLibrariesFromSystemOnly() {
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    SetDllDirectoryW(L"");
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    LoadLibrariesFromSystemOnly();
    SetErrorMode(SEM_FAILCRITICALERRORS); // no system message box for an empty drive
    OleInitialize(nullptr);               // for drag and drop and the common dialogs
    {
        MainForm form(MakeWinPorts());
        if (Form_Load(form)) RunMessageLoop(static_cast<WinWindow&>(*form.ports.window));
    }
    OleUninitialize();
    return 0;
}
