#include "platform/windows/system/launch.h"

#include "platform/windows/base/text.h"
#include "platform/windows/base/win32.h"
#include "platform/windows/files/shortcut.h"
#include "product.h"

#include <knownfolders.h>
#include <shellapi.h>
#include <shlobj.h>

namespace {

std::u16string KnownFolder(const KNOWNFOLDERID& id) {
    wchar_t* path = nullptr;
    const bool known = SUCCEEDED(SHGetKnownFolderPath(id, KF_FLAG_DONT_VERIFY, nullptr, &path));
    std::u16string folder = known ? FromWide(path) : u"";
    CoTaskMemFree(path);
    return folder;
}

std::u16string SystemDrive() { // "C:\"
    std::wstring folder(MAX_PATH, L'\0');
    GetSystemWindowsDirectoryW(folder.data(), MAX_PATH);
    return FromWide(folder.substr(0, 3));
}

std::vector<std::wstring> Arguments() {
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (!arguments) return {};
    const std::vector<std::wstring> all(arguments, arguments + count);
    LocalFree(arguments);
    return {all.begin() + 1, all.end()}; // the first is the program
}

} // namespace

std::u16string BookPath(const std::vector<std::wstring>& arguments) {
    std::wstring path;
    for (const std::wstring& argument : arguments)
        path += (path.empty() ? L"" : L" ") + argument;
    if (path.empty()) return {};
    std::wstring full(maxPathLength, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), maxPathLength, full.data(), nullptr);
    return FromWide(full.substr(0, length < maxPathLength ? length : 0));
}

Launch ThisLaunch() {
    const std::wstring program = ProgramPath();
    const std::size_t separator = program.find_last_of(L"\\/");
    const std::wstring name = program.substr(separator + 1);
    Launch launch;
    launch.programFolder = FromWide(program.substr(0, separator));
    launch.executableName = FromWide(name.substr(0, name.rfind(L'.')));
    launch.userDataFolder = KnownFolder(FOLDERID_RoamingAppData) + u"\\" PRODUCT_TITLE;
    launch.commandLine = FollowShortcut(BookPath(Arguments()));
    launch.rootFolder = KnownFolder(FOLDERID_Documents);
    launch.programsFolder = SystemDrive();
    return launch;
}
