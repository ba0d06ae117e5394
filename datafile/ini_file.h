// The data file as the program reads and writes it: a profile file on disk and its copy in memory.
#pragma once

#include "common/file_limits.h"
#include "common/list_merge.h"
#include "common/profile_file.h"
#include "platform/files.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

constexpr std::uint64_t maxDataFileSize = maxFileInMemory; // far above any history

// What keeps a program from its data file.
enum class IniTrouble {
    None,
    Unread,    // it exists, or may exist, and has never been read
    NotRead,   // it was read, and has been changed to something that cannot be
    NotWritten // the last write failed
};

// No function throws or reports an error: a file that is missing or cannot be read yields the
// defaults, and `Trouble` says what could not be done.
//
// A file that exists and has not been read yet counts as empty, and nothing is ever written over
// it: what its reader would write was made up without knowing it. So it stays, also when it could
// be read by now, until `TryRead`. A file that was read once is known: when it cannot be read any
// more, has gone or is empty, what was read stays true, and comes back with the next write. What
// could not be written is kept, and written with the next change.
class IniFile {
  public:
    IniFile(Files& files, std::u16string path, int ansiCodePage, ProfileFile::Decoder decoder);
    IniFile(const IniFile&) = delete;
    IniFile& operator=(const IniFile&) = delete;

    const std::u16string& Path() const { return path_; }

    // Whether the file is one that has not been read yet; and reading it, for the first time or
    // again. NotFound (with its folder there) is a file that is still to be made.
    bool IsUnread();
    ReadStatus TryRead();
    IniTrouble Trouble() const;

    // What is on disk now, read again when someone else changed the file, with the changes that
    // are not written yet. The reference is good until the next call.
    const ProfileFile& Content();

    // KeepTime: the file's last-write time stays. Always: written even if no byte changes, so that
    // the last-write time says that it happened.
    enum class WriteMode { KeepTime, NewTime, Always };
    void SetValue(WriteMode, std::u16string_view section, std::u16string_view key,
                  std::u16string_view value);
    void SetSection(WriteMode, std::u16string_view section, ListLines lines);
    // Replaces a section of "key=value" lines that held `base` when it was last read or written
    // here by `lines`, merged with what it holds by now. The file's time stays. Returns the merged
    // lines; `lines` itself while the file is unread.
    ListLines MergeSection(std::u16string_view section, const ListLines& base,
                           const ListLines& lines);

    // Takes these lines out of a section, which goes with its last one. The file's time stays.
    void RemoveLines(std::u16string_view section, const ListLines& lines);

    // Writes what could not be written before; whether nothing is left to write.
    bool Flush();

  private:
    friend class IniBatch;
    struct Edit {
        std::u16string section, key; // `key` is "" for a whole section
        std::function<void(ProfileFile&)> apply;
    };
    void Change(WriteMode, Edit);
    void Refresh();
    void ApplyRead(ReadStatus, std::string_view bytes);
    bool FolderIsThere() const;
    bool WriteChanges();

    Files& files_;
    const std::u16string path_;
    const int ansiCodePage_;
    const ProfileFile::Decoder decoder_;

    ProfileFile content_;
    std::optional<FileVersion> version_; // of what `content_` was read from; none: read again
    std::optional<ReadStatus> status_;   // of the last read; none before the first
    bool unread_ = false;                // there is a file and it has never been read

    int batches_ = 0;
    std::vector<Edit> pending_; // not written yet; `content_` has them
    std::string before_;        // bytes on disk, while there are such
    WriteTime time_ = WriteTime::Keep;
    bool always_ = false;
    bool writeFailed_ = false;
};

// While one lives, changes gather in memory; `Commit` of the outermost writes them in one step. The
// file's time is kept only when all of the changes ask for it. What was not committed, because
// something failed on the way, is written with the next change.
class IniBatch {
  public:
    explicit IniBatch(IniFile& file) : file_(file) { ++file_.batches_; }
    ~IniBatch() {
        if (!committed_) --file_.batches_;
    }
    IniBatch(const IniBatch&) = delete;
    IniBatch& operator=(const IniBatch&) = delete;

    // Once, at the end of the scope; false when it was not written.
    bool Commit();

  private:
    IniFile& file_;
    bool committed_ = false;
};

// The value without blanks before it, cut at 32766 characters.
std::u16string IniReadString(IniFile&, std::u16string_view section, std::u16string_view key,
                             std::u16string_view fallback = u"");

// The number at the start of the value's first 254 characters, with four decimals; 0 when there is
// none, or when the file's path, the section or the key is empty. `charactersRead` receives the
// length of the value.
double IniReadNumber(IniFile&, std::u16string_view section, std::u16string_view key,
                     double fallback = 0, int* charactersRead = nullptr);

// Nothing happens when the value is there already. An empty value is always written, as one blank,
// so that its key stays.
void IniWriteString(IniFile&, std::u16string_view section, std::u16string_view key,
                    std::u16string_view value, WriteTime time = WriteTime::Now);

// The same for a number with four decimals. 0 is always written.
void IniWriteNumber(IniFile&, std::u16string_view section, std::u16string_view key, double value,
                    WriteTime time = WriteTime::Now);
