#include "platform/windows/files/win_file_watch.h"

#include "platform/shared/call_handler.h"
#include "platform/windows/base/text.h"
#include "platform/windows/files/paths.h"

#include <dbt.h>

#include <algorithm>
#include <utility>

namespace {
constexpr UINT changesMessage = WM_APP;

// Of another machine, or a link: the folder of what it links to is another one.
bool MayChangeUnseen(const std::wstring& path) {
    std::wstring volume(path.size() + MAX_PATH, L'\0');
    if (!GetVolumePathNameW(path.c_str(), volume.data(), static_cast<DWORD>(volume.size())))
        return true;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const bool isLink =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT);
    return isLink || GetDriveTypeW(volume.c_str()) == DRIVE_REMOTE;
}

// "LANTER~1.TXT", which may be told instead of the name.
bool MayBeShortName(const std::wstring& name) {
    constexpr std::size_t maxLength = 12;
    const std::size_t at = name.find(L'~');
    return name.size() <= maxLength && at + 1 < name.size() && name[at + 1] >= L'0' &&
           name[at + 1] <= L'9';
}

// So that a stick can be taken out safely: the system asks those who have something open on it.
HDEVNOTIFY RegisterForRemoval(HWND window, HANDLE folder) {
    DEV_BROADCAST_HANDLE filter = {};
    filter.dbch_size = sizeof filter;
    filter.dbch_devicetype = DBT_DEVTYP_HANDLE;
    filter.dbch_handle = folder;
    return RegisterDeviceNotificationW(window, &filter, DEVICE_NOTIFY_WINDOW_HANDLE);
}
} // namespace

WinFileWatch::WinFileWatch()
    : window_({L"NorvasetFileWatch", 0, 0, HWND_MESSAGE},
              [this](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
                  return Handle(window, message, wParam, lParam);
              }) {}

WinFileWatch::~WinFileWatch() {
    Stop();
}

void WinFileWatch::Watch(const std::u16string& path) {
    Stop();
    const auto native = NativePath(path);
    if (!native) return;
    name_ = NameOf(*native);
    folder_ = std::make_unique<FolderChanges>(FolderOf(*native), window_.Handle(), changesMessage);
    complete_ = folder_->IsWatching() && !MayChangeUnseen(*native);
    if (folder_->IsWatching())
        deviceNotification_ = RegisterForRemoval(window_.Handle(), folder_->Folder());
}

void WinFileWatch::Stop() {
    if (void* notification = std::exchange(deviceNotification_, nullptr))
        UnregisterDeviceNotification(notification);
    folder_.reset();
    complete_ = false;
}

LRESULT WinFileWatch::Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == changesMessage) HandleChanges();
    if (message == WM_DEVICECHANGE && wParam == DBT_DEVICEQUERYREMOVE) {
        Stop();
        return TRUE;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void WinFileWatch::HandleChanges() {
    if (!folder_) return; // a message that was on its way
    const auto names = folder_->Take();
    complete_ = complete_ && folder_->IsWatching();
    const bool isOfFile = !names || std::ranges::any_of(*names, [&](const std::wstring& name) {
        return EqualsIgnoringCase(name, name_) || MayBeShortName(name);
    });
    if (isOfFile) CallHandler(onChanged);
}
