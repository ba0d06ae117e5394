#include "platform/windows/files/folder_changes.h"

namespace {
constexpr DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

std::vector<std::wstring> NamesIn(const BYTE* changes) {
    std::vector<std::wstring> names;
    for (;;) {
        const auto* change = reinterpret_cast<const FILE_NOTIFY_INFORMATION*>(changes);
        names.emplace_back(change->FileName, change->FileNameLength / sizeof(wchar_t));
        if (change->NextEntryOffset == 0) return names;
        changes += change->NextEntryOffset;
    }
}
} // namespace

FolderChanges::FolderChanges(const std::wstring& folder, HWND window, UINT message)
    : window_(window), message_(message),
      folder_(CreateFileW((folder + L'\\').c_str(), FILE_LIST_DIRECTORY, share, nullptr,
                          OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OVERLAPPED,
                          nullptr)),
      request_(std::make_unique<Request>()) {
    request_->done = WinHandle(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    request_->overlapped.hEvent = request_->done.Get();
    if (!folder_.IsOpen() || !request_->done.IsOpen()) return;
    // A thread of the system's pool waits, and only posts the message.
    if (RegisterWaitForSingleObject(&wait_, request_->done.Get(), Post, this, INFINITE,
                                    WT_EXECUTEINWAITTHREAD))
        Ask();
}

FolderChanges::~FolderChanges() {
    constexpr DWORD timeout = 2000;                           // milliseconds
    if (wait_) UnregisterWaitEx(wait_, INVALID_HANDLE_VALUE); // no call comes any more
    if (!asked_ || HasOverlappedIoCompleted(&request_->overlapped)) return;
    CancelIoEx(folder_.Get(), &request_->overlapped);
    if (WaitForSingleObject(request_->done.Get(), timeout) != WAIT_OBJECT_0 &&
        !HasOverlappedIoCompleted(&request_->overlapped))
        static_cast<void>(request_.release());
}

void CALLBACK FolderChanges::Post(void* self, BOOLEAN) {
    const auto* changes = static_cast<const FolderChanges*>(self);
    PostMessageW(changes->window_, changes->message_, 0, 0);
}

void FolderChanges::Ask() {
    constexpr DWORD kinds = FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_SIZE |
                            FILE_NOTIFY_CHANGE_LAST_WRITE | FILE_NOTIFY_CHANGE_CREATION;
    asked_ = ReadDirectoryChangesW(folder_.Get(), request_->changes, sizeof request_->changes,
                                   FALSE, kinds, nullptr, &request_->overlapped, nullptr) != 0;
}

std::optional<std::vector<std::wstring>> FolderChanges::Take() {
    DWORD size = 0;
    if (!asked_) return std::nullopt;
    if (!GetOverlappedResult(folder_.Get(), &request_->overlapped, &size, FALSE)) {
        if (GetLastError() == ERROR_IO_INCOMPLETE) return std::vector<std::wstring>();
        asked_ = false;
        return std::nullopt;
    }
    std::optional<std::vector<std::wstring>> names;
    if (size > 0) names = NamesIn(request_->changes);
    Ask();
    return names;
}
