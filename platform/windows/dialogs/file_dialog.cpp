#include "platform/windows/dialogs/common_dialogs.h"

#include "common/text.h"
#include "platform/windows/base/text.h"
#include "platform/windows/base/wine.h"

#include <cderr.h>
#include <commctrl.h>
#include <commdlg.h>
#include <dlgs.h>
#include <objbase.h>
#include <shlwapi.h>

#include <algorithm>
#include <cwchar>

namespace {

constexpr std::size_t pathSize = maxPathLength + 1; // with the NUL

// The dialog uses shell objects, which need a COM apartment.
class ComApartment {
  public:
    ComApartment() : joined_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~ComApartment() {
        if (joined_) CoUninitialize();
    }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

  private:
    const bool joined_;
};

// OPENFILENAME::lpstrFilter: pairs of name and pattern, each ended by a NUL, and one more NUL.
std::wstring NativeFilter(const OpenFileRequest& request) {
    const auto parts = Split(request.filter, u"|");
    std::wstring native;
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        const bool listsMore = i / 2 < request.listed.size() && !request.listed[i / 2].empty();
        native += ToWide(parts[i]) + L'\0';
        native += ToWide(listsMore ? request.listed[i / 2] : parts[i + 1]) + L'\0';
    }
    return native + L'\0';
}

// The dialog accepts only "\" in lpstrInitialDir and lpstrFile.
std::wstring WithBackslashes(const std::u16string& path) {
    std::wstring native = ToWide(path);
    std::replace(native.begin(), native.end(), L'/', L'\\');
    return native;
}

// Whether the dialog takes the path: a folder's must leave room for a name of 8.3 characters in it.
// Wine 8 ends in an access violation for one of MAX_PATH - 2.
bool Fits(const std::wstring& path) {
    constexpr std::size_t room = 13;
    return path.size() + room <= MAX_PATH;
}

// The folder, or the nearest one above it that fits, or none.
std::wstring FittingFolder(std::wstring folder) {
    while (!Fits(folder)) {
        const std::size_t separator = folder.rfind(L'\\');
        folder.resize(separator == folder.npos ? 0 : separator);
    }
    return folder;
}

// Wine 8 copies the name that was typed, and puts the folder in front of it, in a room of MAX_PATH
// units, however long both are.
bool IsNameTooLong(HWND dialog) {
    wchar_t name[MAX_PATH] = {}, folder[MAX_PATH] = {};
    if (GetDlgItemTextW(dialog, cmb13, name, MAX_PATH) == 0)
        GetDlgItemTextW(dialog, edt1, name, MAX_PATH);
    const bool fromRoot = name[0] == L'\\'; // gets a drive
    const bool inFolder = !fromRoot && PathIsRelativeW(name);
    if (inFolder)
        SendMessageW(dialog, CDM_GETFOLDERPATH, MAX_PATH, reinterpret_cast<LPARAM>(folder));
    const std::size_t inFront = inFolder ? std::wcslen(folder) + 1 : fromRoot ? 2 : 0;
    return inFront + std::wcslen(name) >= MAX_PATH;
}

LRESULT CALLBACK RefuseLongName(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                DWORD_PTR) {
    if (message == WM_COMMAND && LOWORD(wParam) == IDOK && IsNameTooLong(dialog)) {
        MessageBeep(MB_ICONWARNING);
        return 0;
    }
    return DefSubclassProc(dialog, message, wParam, lParam);
}

UINT_PTR CALLBACK LimitName(HWND child, UINT message, WPARAM, LPARAM lParam) {
    if (message != WM_NOTIFY || reinterpret_cast<NMHDR*>(lParam)->code != CDN_INITDONE) return 0;
    const HWND dialog = GetParent(child);
    const auto limit = [](HWND control, LPARAM) -> BOOL {
        SendMessageW(control, EM_LIMITTEXT, MAX_PATH - 1, 0);
        return TRUE;
    };
    EnumChildWindows(dialog, limit, 0);
    SetWindowSubclass(dialog, RefuseLongName, 0, 0);
    return 0;
}

// As the file functions take it: dots and spaces at the end are no part of it.
std::u16string FileOf(const std::wstring& chosen) {
    std::wstring full(pathSize, L'\0');
    const DWORD length = GetFullPathNameW(chosen.c_str(), pathSize, full.data(), nullptr);
    return FromWide(length > 0 && length < pathSize ? full.substr(0, length) : chosen);
}

// Returns CommDlgExtendedError: 0 also for Cancel.
DWORD Show(HWND owner, const OpenFileRequest& request, std::wstring name, OpenFileAnswer& answer) {
    const std::wstring title = ToWide(request.title), filter = NativeFilter(request);
    const std::wstring folder = FittingFolder(WithBackslashes(request.initialFolder));
    if (!Fits(name)) name.clear();
    name.resize(pathSize, L'\0');
    name.back() = L'\0';
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter.c_str();
    dialog.nFilterIndex = static_cast<DWORD>(std::max(request.filterIndex, 1));
    dialog.lpstrFile = name.data();
    dialog.nMaxFile = static_cast<DWORD>(name.size());
    dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    dialog.lpstrTitle = title.c_str();
    dialog.Flags =
        OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (RunsUnderWine()) { // on Windows a hook makes it a dialog of an older look
        dialog.Flags |= OFN_ENABLEHOOK | OFN_ENABLESIZING;
        dialog.lpfnHook = LimitName;
    }
    if (!GetOpenFileNameW(&dialog)) return CommDlgExtendedError();
    answer.result = DialogResult::Ok;
    answer.fileName = FileOf(name.substr(0, name.find(L'\0')));
    answer.filterIndex = std::max(static_cast<int>(dialog.nFilterIndex), 1);
    return 0;
}

} // namespace

OpenFileAnswer AskFile(HWND owner, const OpenFileRequest& request) {
    const ComApartment apartment;
    OpenFileAnswer answer;
    DWORD error = Show(owner, request, WithBackslashes(request.fileName), answer);
    // An invalid initial name makes the dialog fail: show it without one.
    if (error == FNERR_INVALIDFILENAME && !request.fileName.empty())
        error = Show(owner, request, {}, answer);
    if (error != 0) answer.result = DialogResult::Failed;
    return answer;
}
