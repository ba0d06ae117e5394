#include "platform/windows/system/win_shell.h"

#include "common/web_address.h"
#include "platform/windows/base/text.h"
#include "platform/windows/portable/quoted_argument.h"

#include <shellapi.h>
#include <shlobj.h>

namespace {

constexpr DWORD elevationRequired = 740; // ERROR_ELEVATION_REQUIRED, which not every SDK has

// The program inherits no handles and is not waited for.
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

void OpenByShell(const std::wstring& file, const std::wstring& parameters) {
    SHELLEXECUTEINFOW request = {};
    request.cbSize = sizeof request;
    request.fMask = SEE_MASK_FLAG_NO_UI;
    request.lpVerb = L"open";
    request.lpFile = file.c_str();
    request.lpParameters = parameters.c_str();
    request.nShow = SW_SHOWNORMAL;
    ShellExecuteExW(&request);
}

// Whether a program is registered for the scheme. Without one the shell would treat the address as
// a file name, and run that.
bool HasProgram(const std::wstring& scheme) {
    return RegGetValueW(HKEY_CLASSES_ROOT, scheme.c_str(), L"URL Protocol", RRF_RT_ANY, nullptr,
                        nullptr, nullptr) == ERROR_SUCCESS;
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
    // A shortcut to a program, or one that needs elevation.
    if (error == ERROR_BAD_EXE_FORMAT || error == elevationRequired)
        OpenByShell(file, QuotedArgument(ToWide(argument)));
}

void WinShell::OpenAddress(const std::u16string& address) {
    const std::wstring wide = ToWide(address);
    if (IsProgramAddress(address) && HasProgram(wide.substr(0, wide.find(L':'))))
        OpenByShell(wide, {});
}

void WinShell::OpenFile(const std::u16string& path) {
    // Another colon would name an alternate data stream, which the shell treats by its own
    // extension.
    const bool isFull = path.starts_with(u"\\\\") || path.substr(0, 3).ends_with(u":\\");
    const bool hasStream = path.find(u':', 2) != std::u16string::npos;
    if (isFull && !hasStream) OpenByShell(ToWide(path), {});
}

// The taskbar's jump list has those whose kind the program is registered for, as the installer
// does.
void WinShell::AddRecentDocument(const std::u16string& path) {
    SHAddToRecentDocs(SHARD_PATHW, ToWide(path).c_str());
}

InstanceClaim WinShell::ClaimDataFile(const std::u16string& path) {
    InstanceClaim claim = lock_.Acquire(path);
    if (const auto lockFile = WinInstanceLock::PathFor(path); lock_.IsHeld() && lockFile)
        listener_.Listen(*lockFile);
    return claim;
}

HandOver WinShell::HandOverBook(const std::u16string& dataFile, const std::u16string& book,
                                int milliseconds) {
    const auto lockFile = WinInstanceLock::PathFor(dataFile);
    return lockFile ? AskRunningInstance(*lockFile, book, milliseconds) : HandOver::NobodyThere;
}
