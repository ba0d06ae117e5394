#include "platform/windows/win_shell.h"

#include "platform/windows/win_arguments.h"
#include "platform/windows/win_instance_name.h"
#include "platform/windows/win_text.h"

#include <shellapi.h>

namespace {

constexpr DWORD ElevationRequired = 740; // by a name that not every SDK has

// The handles are ours alone: the program inherits none, and nobody waits for it.
bool StartProgram(const std::wstring& program, const std::wstring& argument) {
    std::wstring commandLine = QuotedArgument(program) + L' ' + QuotedArgument(argument);
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION started = {};
    if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                        CREATE_DEFAULT_ERROR_MODE | CREATE_NEW_PROCESS_GROUP, nullptr, nullptr,
                        &start, &started)) {
        return false;
    }
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return true;
}

// For what is no program itself (a shortcut to one), and for one that must ask for more rights.
void OpenByShell(const std::wstring& program, const std::wstring& argument) {
    const std::wstring quoted = QuotedArgument(argument);
    SHELLEXECUTEINFOW request = {};
    request.cbSize = sizeof request;
    request.fMask = SEE_MASK_FLAG_NO_UI;
    request.lpVerb = L"open";
    request.lpFile = program.c_str();
    request.lpParameters = quoted.c_str();
    request.nShow = SW_SHOWNORMAL;
    ShellExecuteExW(&request);
}

} // namespace

std::u16string WinShell::DefaultTextEditor() const {
    std::wstring folder(MAX_PATH, L'\0');
    folder.resize(GetSystemDirectoryW(folder.data(), MAX_PATH));
    return FromWide(folder + L"\\notepad.exe");
}

void WinShell::OpenWith(const std::u16string& program, const std::u16string& argument) {
    const std::wstring file = ToWide(program);
    if (StartProgram(file, ToWide(argument))) return;
    const DWORD error = GetLastError();
    if (error == ERROR_BAD_EXE_FORMAT || error == ElevationRequired)
        OpenByShell(file, ToWide(argument));
}

bool WinShell::BecomeOnlyInstance(const std::u16string& name) {
    if (lock_.IsOpen()) return true;
    WinHandle mutex(CreateMutexW(nullptr, FALSE, InstanceLockName(ToWide(name)).c_str()));
    const DWORD error = GetLastError();
    // Denied: it belongs to an instance of more rights.
    if (mutex.IsOpen() ? error == ERROR_ALREADY_EXISTS : error == ERROR_ACCESS_DENIED) return false;
    // Where none can be made at all: a reader that starts twice is better than one that never does.
    lock_ = std::move(mutex);
    return true;
}
