#include "platform/windows/files/replace.h"

#include "platform/windows/base/text.h"
#include "platform/windows/base/win_handle.h"
#include "platform/windows/files/paths.h"
#include "platform/windows/files/regular_file.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace {

// "Norvaset.dat.1234.new": the target's name, the writer's process id.
constexpr std::wstring_view temporaryEnd = L".new";
// A virus scanner or an indexer may hold a file for a moment just after it was written.
constexpr int renameAttempts = 8;
constexpr DWORD betweenAttempts = 25; // milliseconds

std::wstring TemporaryName(const std::wstring& target) {
    return target + L'.' + std::to_wstring(GetCurrentProcessId()) + std::wstring(temporaryEnd);
}

std::optional<DWORD> ParseProcessId(std::wstring_view digits) {
    constexpr std::size_t maxDigits = 10;
    if (digits.empty() || digits.size() > maxDigits) return std::nullopt;
    unsigned long long number = 0;
    for (const wchar_t digit : digits) {
        if (digit < L'0' || digit > L'9') return std::nullopt;
        number = number * 10 + static_cast<unsigned>(digit - L'0');
    }
    if (number == 0 || number > MAXDWORD) return std::nullopt;
    return static_cast<DWORD>(number);
}

// The process id in the name of a temporary file of `target`, both without folder.
std::optional<DWORD> WriterProcessId(std::wstring_view name, const std::wstring& target) {
    if (name.size() < target.size() + 1 + temporaryEnd.size()) return std::nullopt;
    if (!name.ends_with(temporaryEnd)) return std::nullopt;
    if (UppercasePath(std::wstring(name.substr(0, target.size()))) != UppercasePath(target))
        return std::nullopt;
    name.remove_prefix(target.size());
    name.remove_suffix(temporaryEnd.size());
    return name.front() == L'.' ? ParseProcessId(name.substr(1)) : std::nullopt;
}

// This process has no replacement under way here: a file with its id is from an earlier process.
bool HasExited(DWORD process) {
    if (process == GetCurrentProcessId()) return true;
    const WinHandle opened(OpenProcess(SYNCHRONIZE, FALSE, process));
    if (!opened.IsOpen()) return GetLastError() == ERROR_INVALID_PARAMETER;
    return WaitForSingleObject(opened.Get(), 0) == WAIT_OBJECT_0;
}

void Remove(const std::wstring& path) {
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL); // a read-only file cannot be deleted
    DeleteFileW(path.c_str());
}

// The file to be replaced.
struct OldFile {
    FILE_BASIC_INFO basic = {};
    std::vector<BYTE> dacl; // self-relative; empty where the file system has none
};

std::vector<BYTE> ReadDacl(HANDLE file) {
    DWORD size = 0;
    GetKernelObjectSecurity(file, DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<BYTE> dacl(size);
    if (!GetKernelObjectSecurity(file, DACL_SECURITY_INFORMATION, dacl.data(), size, &size))
        dacl.clear();
    return dacl;
}

// Without SE_DACL_AUTO_INHERIT_REQ inherited entries would become explicit ones.
void WriteDacl(HANDLE file, std::vector<BYTE> dacl) {
    if (dacl.empty()) return;
    const SECURITY_DESCRIPTOR_CONTROL inherited = SE_DACL_AUTO_INHERITED,
                                      request = SE_DACL_AUTO_INHERIT_REQ;
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (GetSecurityDescriptorControl(dacl.data(), &control, &revision) && (control & inherited))
        SetSecurityDescriptorControl(dacl.data(), request, request);
    SetKernelObjectSecurity(file, DACL_SECURITY_INFORMATION, dacl.data());
}

// Returns the system's error code, ERROR_SUCCESS when `old` is filled.
DWORD QueryOldFile(const std::wstring& path, OldFile& old) {
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const WinHandle file(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES | READ_CONTROL, sharing,
                                     nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file.IsOpen()) return GetLastError();
    if (GetFileType(file.Get()) != FILE_TYPE_DISK) return ERROR_BAD_FILE_TYPE;
    if (!GetFileInformationByHandleEx(file.Get(), FileBasicInfo, &old.basic, sizeof old.basic))
        return GetLastError();
    old.dacl = ReadDacl(file.Get());
    return ERROR_SUCCESS;
}

bool WriteAll(HANDLE file, std::string_view bytes) {
    constexpr std::size_t maxPiece = 1u << 24;
    while (!bytes.empty()) {
        const auto piece = static_cast<DWORD>(std::min(bytes.size(), maxPiece));
        DWORD written = 0;
        if (!WriteFile(file, bytes.data(), piece, &written, nullptr) || written == 0) return false;
        bytes.remove_prefix(written);
    }
    return true;
}

bool CopyAttributes(HANDLE file, const OldFile& old, WriteTime time) {
    WriteDacl(file, old.dacl);  // without WRITE_DAC the folder's inherited entries apply
    FILE_BASIC_INFO basic = {}; // a time of 0 is not changed
    basic.CreationTime = old.basic.CreationTime;
    if (time == WriteTime::Keep) basic.LastWriteTime = old.basic.LastWriteTime;
    constexpr DWORD copied = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                             FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    basic.FileAttributes = (old.basic.FileAttributes & copied) | FILE_ATTRIBUTE_ARCHIVE;
    return SetFileInformationByHandle(file, FileBasicInfo, &basic, sizeof basic);
}

bool WriteTemporary(const std::wstring& path, std::string_view bytes, const OldFile* old,
                    WriteTime time) {
    WinHandle file(CreateFileW(path.c_str(), GENERIC_WRITE | READ_CONTROL | WRITE_DAC,
                               FILE_SHARE_READ, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                               nullptr));
    if (!file.IsOpen()) return false;
    const bool written = WriteAll(file.Get(), bytes) &&
                         (!old || CopyAttributes(file.Get(), *old, time)) &&
                         FlushFileBuffers(file.Get()) && file.Close();
    file.Close();
    if (!written) Remove(path);
    return written;
}

bool Rename(const std::wstring& from, const std::wstring& to) {
    for (int attempt = 1;; ++attempt) {
        if (MoveFileExW(from.c_str(), to.c_str(),
                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
            return true;
        }
        const DWORD error = GetLastError();
        if ((error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED) ||
            attempt == renameAttempts) {
            return false;
        }
        Sleep(betweenAttempts);
    }
}

// A rename cannot replace a read-only file, so the attribute is removed for a moment. (ReplaceFile
// can, but may leave no file of that name when it is interrupted.)
bool RenameOver(const std::wstring& from, const std::wstring& to, const OldFile& old) {
    const DWORD attributes = old.basic.FileAttributes;
    const bool readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (readOnly && !SetFileAttributesW(to.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY}))
        return false;
    if (Rename(from, to)) return true;
    if (readOnly) SetFileAttributesW(to.c_str(), attributes);
    return false;
}

// None for a dangling link.
std::optional<std::wstring> FollowLink(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return path;
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const WinHandle file(CreateFileW(path.c_str(), 0, sharing, nullptr, OPEN_EXISTING,
                                     FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file.IsOpen()) return std::nullopt;
    std::wstring target = RealPathOf(file);
    if (target.empty()) return std::nullopt;
    return target;
}

} // namespace

bool ReplaceInOneStep(const std::wstring& path, std::string_view bytes, WriteTime time) {
    const auto target = FollowLink(path);
    if (!target) return false;
    OldFile file;
    const DWORD error = QueryOldFile(*target, file);
    if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND) return false;
    const OldFile* const old = error == ERROR_SUCCESS ? &file : nullptr;
    if (old && (old->basic.FileAttributes & FILE_ATTRIBUTE_DIRECTORY)) return false;

    const std::wstring temporary = TemporaryName(*target);
    if (!WriteTemporary(temporary, bytes, old, time)) return false;
    if (old ? RenameOver(temporary, *target, *old) : Rename(temporary, *target)) return true;
    Remove(temporary);
    return false;
}

void RemoveLeftovers(const std::wstring& path) {
    const auto target = FollowLink(path);
    if (!target) return;
    const std::wstring name = NameOf(*target);
    const std::wstring pattern = *target + L".*" + std::wstring(temporaryEnd);
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const auto writer = WriterProcessId(found.cFileName, name);
        if (writer && HasExited(*writer)) Remove(FolderOf(*target) + L"\\" + found.cFileName);
    } while (FindNextFileW(search, &found));
    FindClose(search);
}
