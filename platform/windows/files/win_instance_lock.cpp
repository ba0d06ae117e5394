#include "platform/windows/files/win_instance_lock.h"

#include "platform/windows/base/text.h"
#include "platform/windows/files/paths.h"

namespace {

constexpr DWORD lockOffset = 0x40000000; // beyond the contents: a locked byte cannot be read
constexpr int attempts = 10;             // another instance may be exiting
constexpr DWORD betweenAttempts = 25;    // milliseconds

enum class Locking { Locked, Held, Impossible };

// User name, line feed, computer name; UTF-16.
std::wstring ThisHolder() {
    constexpr DWORD maxLength = 256 + 1;
    wchar_t user[maxLength] = {}, machine[maxLength] = {};
    DWORD userLength = maxLength, machineLength = maxLength;
    GetUserNameW(user, &userLength);
    GetComputerNameW(machine, &machineLength);
    return std::wstring(user) + L'\n' + machine;
}

// Another user's lock file may be read-only to us; it can still be locked.
WinHandle OpenLockFile(const std::wstring& path) {
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const auto open = [&](DWORD access, DWORD disposition) {
        return WinHandle(CreateFileW(path.c_str(), access, sharing, nullptr, disposition,
                                     FILE_ATTRIBUTE_HIDDEN, nullptr));
    };
    WinHandle file = open(GENERIC_READ | GENERIC_WRITE | DELETE, OPEN_ALWAYS);
    if (!file.IsOpen()) file = open(GENERIC_READ, OPEN_EXISTING);
    return file;
}

Locking Lock(const WinHandle& file) {
    OVERLAPPED place = {};
    place.Offset = lockOffset;
    constexpr DWORD flags = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
    if (LockFileEx(file.Get(), flags, 0, 1, 0, &place)) return Locking::Locked;
    const DWORD error = GetLastError();
    const bool held = error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING;
    return held ? Locking::Held : Locking::Impossible;
}

// An exiting holder deletes the file: a handle opened just before then locks a file without a name.
bool IsDeleted(const WinHandle& file) {
    FILE_STANDARD_INFO information = {};
    return GetFileInformationByHandleEx(file.Get(), FileStandardInfo, &information,
                                        sizeof information) &&
           information.DeletePending;
}

void WriteHolder(const WinHandle& file) {
    const std::wstring holder = ThisHolder();
    DWORD written = 0;
    SetEndOfFile(file.Get());
    WriteFile(file.Get(), holder.data(), static_cast<DWORD>(holder.size() * sizeof(wchar_t)),
              &written, nullptr);
}

InstanceClaim ClaimHeldBy(const WinHandle& file) {
    wchar_t text[1024] = {};
    DWORD bytes = 0;
    ReadFile(file.Get(), text, sizeof text - sizeof(wchar_t), &bytes, nullptr);
    std::wstring holder(text);
    const std::size_t line = holder.find(L'\n');
    if (line == holder.npos || holder == ThisHolder()) return {InstanceClaim::Result::Own, u""};
    holder.replace(line, 1, L" on ");
    return {InstanceClaim::Result::SomebodyElse, FromWide(holder)};
}

} // namespace

WinInstanceLock::~WinInstanceLock() {
    FILE_DISPOSITION_INFO disposition = {TRUE};
    if (file_.IsOpen())
        SetFileInformationByHandle(file_.Get(), FileDispositionInfo, &disposition,
                                   sizeof disposition);
}

std::optional<std::wstring> WinInstanceLock::PathFor(const std::u16string& dataFilePath) {
    const auto path = NativePath(dataFilePath);
    if (!path) return std::nullopt;
    return *path + L".lock";
}

InstanceClaim WinInstanceLock::Acquire(const std::u16string& dataFilePath) {
    const auto path = PathFor(dataFilePath);
    if (file_.IsOpen() || !path) return {};
    const std::wstring& name = *path;
    for (int i = 0; i < attempts; ++i) {
        if (i > 0) Sleep(betweenAttempts);
        WinHandle file = OpenLockFile(name);
        if (!file.IsOpen()) {
            if (GetLastError() == ERROR_ACCESS_DENIED) continue; // just being deleted, or no rights
            return {};
        }
        const Locking locking = Lock(file);
        if (locking == Locking::Held) return ClaimHeldBy(file);
        if (locking == Locking::Impossible) return {};
        if (IsDeleted(file)) continue;
        WriteHolder(file);
        file_ = std::move(file);
        return {};
    }
    return {};
}
