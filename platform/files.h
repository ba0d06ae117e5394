// The port of the file system.
#pragma once

#include "common/file_limits.h"
#include "common/file_reader.h"
#include "platform/clock.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// Paths are full paths as text. A name on disk that is not valid text reaches the core with "?" for
// each undecipherable byte or character, and no file is found under such a path.
enum class FileTime { Creation = 0, LastAccess = 1, LastWrite = 2 };

// Of a file that is replaced: the moment at which it is, or that of the old one.
enum class WriteTime { Now, Keep };

enum class ReadStatus { Ok, NotFound, NotAFile, Denied, TooLarge, Failed };

// Identity and version of a file's content, to see whether a copy in memory is still current.
struct FileVersion {
    std::uint64_t device = 0, id = 0, size = 0;
    std::int64_t lastWrite = 0; // nanoseconds
    bool operator==(const FileVersion&) const = default;
};

class Files {
  public:
    virtual ~Files() = default;

    virtual char16_t Separator() const = 0;
    // True for anything but a directory whose attributes can be read; false on any error.
    virtual bool FileExists(const std::u16string& path) const = 0;
    virtual bool FolderExists(const std::u16string& path) const = 0;
    virtual bool FolderIsWritable(const std::u16string& path) const = 0;
    // Whether it is one, as for temporary files, in which everybody may make files and each user's
    // are safe from others only once they are there.
    virtual bool FolderIsPublic(const std::u16string& path) const = 0;
    virtual bool CreateFolder(const std::u16string& path) = 0; // with its parents
    // Whether two existing paths name one and the same file; false when either cannot be read.
    virtual bool SameFile(const std::u16string& a, const std::u16string& b) const = 0;
    // Whether an existing file lies in an existing folder or below it, links followed.
    virtual bool IsInFolder(const std::u16string& path, const std::u16string& folder) const = 0;
    virtual std::optional<FileVersion> Version(const std::u16string& path) const = 0;

    // Reads a whole regular file; never waits (a pipe or a device is NotAFile). A file of more than
    // `limit` bytes is TooLarge and `bytes` stays as it was, as on any failure.
    virtual ReadStatus Read(const std::u16string& path, std::uint64_t limit,
                            std::string& bytes) const = 0;
    // The first bytes of a regular file, `count` at most: what can be learnt from it without
    // reading it whole.
    virtual ReadStatus ReadStart(const std::u16string& path, std::size_t count,
                                 std::string& bytes) const = 0;
    // Opens a regular file of any size, to be read in parts. The reader keeps to this file also
    // when another takes its place or it is deleted; null when it cannot be opened, with the reason
    // in `status`. A back end that has nothing better reads it whole.
    virtual std::unique_ptr<FileReader> Open(const std::u16string& path, ReadStatus& status) const {
        std::string bytes;
        status = Read(path, maxFileInMemory, bytes);
        if (status != ReadStatus::Ok) return nullptr;
        return std::make_unique<BytesReader>(std::move(bytes));
    }
    // Whether this user's rights allow to replace the file, or to make it: not where it is another
    // user's and this one may not write it.
    virtual bool MayReplace(const std::u16string& path) const = 0;
    // Puts `bytes` in the place of the file in one step: after a crash at any moment the old or the
    // new content is there. Keeps the file's read-only attribute, and its last-write time when
    // asked. A new file can be read and written by those who may make files in its folder. False
    // when it could not be done, or another user's file may not be written; the old content is then
    // untouched.
    virtual bool Replace(const std::u16string& path, std::string_view bytes, WriteTime time) = 0;

    virtual std::optional<DateTime> Time(const std::u16string& path,
                                         FileTime) const = 0; // local time
    virtual bool SetTime(const std::u16string& path, const DateTime& local, FileTime) = 0;
};
