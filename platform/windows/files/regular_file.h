// A file open for reading.
#pragma once

#include "common/file_reader.h"
#include "platform/files.h"
#include "platform/windows/base/win_handle.h"

#include <optional>
#include <string>

// Opens a file or a folder that exists; other programs may read, write, rename or delete it
// meanwhile.
// `error` receives the system's code, ERROR_SUCCESS when it is open.
WinHandle OpenExisting(const std::wstring& path, DWORD access, DWORD& error);
std::optional<BY_HANDLE_FILE_INFORMATION> InformationOf(const WinHandle&);
// Where links lead; "" when it is not open.
std::wstring RealPathOf(const WinHandle&);
std::wstring RealFolderOf(const WinHandle&); // with a backslash at the end
// Whether it lies in the folder of that real path or below; false when either cannot be opened.
bool IsBelowRealFolder(const WinHandle&, std::wstring_view realFolder);
std::uint64_t MakeUint64(DWORD high, DWORD low);

// A regular file, or why there is none.
struct RegularFile {
    explicit RegularFile(const std::u16string& path);

    // To the end, wherever that is by then: the file may grow or shrink meanwhile.
    ReadStatus Read(std::uint64_t limit, std::string& bytes) const;
    ReadStatus ReadStart(std::size_t count, std::string& bytes) const;

    WinHandle handle;
    ReadStatus status = ReadStatus::NotFound;
    std::uint64_t size = 0; // when it was opened
};

// Reads on request. Not mapped into memory: bytes of a share that has gone would then end the
// program.
class WinFileReader : public FileReader {
  public:
    explicit WinFileReader(RegularFile file) : file_(std::move(file)) {}
    std::uint64_t Size() const override { return file_.size; }
    std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) const override;

  private:
    RegularFile file_;
};
