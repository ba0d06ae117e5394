// A library as somebody may leave it beside a program, under the name of one of the system's. It
// leaves a mark when it is loaded, and has nothing of what is asked of the real one.
#include <windows.h>

#include <string>

BOOL WINAPI DllMain(HINSTANCE self, DWORD reason, LPVOID) {
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(self, path, MAX_PATH);
    const HANDLE mark = CreateFileW((std::wstring(path) + L".loaded").c_str(), GENERIC_WRITE, 0,
                                    nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (mark != INVALID_HANDLE_VALUE) CloseHandle(mark);
    return TRUE;
}
