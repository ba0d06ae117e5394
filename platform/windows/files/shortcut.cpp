#include "platform/windows/files/shortcut.h"

#include "platform/windows/base/com_ptr.h"
#include "platform/windows/base/text.h"
#include "platform/windows/files/paths.h"

#include <objbase.h>
#include <shlobj.h>

// The path is taken as it is stored: to look for a file that has gone, as the shell does, could
// take long and ask questions.
std::u16string FollowShortcut(const std::u16string& path) {
    constexpr std::wstring_view extension = L".lnk";
    const std::wstring wide = ToWide(path);
    const std::size_t stem = wide.size() < extension.size() ? 0 : wide.size() - extension.size();
    if (!EqualsIgnoringCase(std::wstring_view(wide).substr(stem), extension)) return path;
    ComPtr<IShellLinkW> link;
    if (FAILED(
            CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&link))))
        return path;
    const auto file = Query<IPersistFile>(link);
    wchar_t target[MAX_PATH] = {}; // what a shortcut can hold
    const bool found = file && SUCCEEDED(file->Load(wide.c_str(), STGM_READ)) &&
                       SUCCEEDED(link->GetPath(target, MAX_PATH, nullptr, 0)) && target[0];
    return found ? FromWide(target) : path;
}
