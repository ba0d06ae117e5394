// The data file as the program reads and writes it: a profile file on disk and its copy in memory.
#pragma once

#include "common/profile_file.h"
#include "platform/files.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

constexpr std::uint64_t largestDataFile = 256u << 20; // bytes; far above any history

// No function reports an error: a file that is missing or cannot be read yields the defaults, a
// write that fails is lost. A file that is there and cannot be read is never written over.
class IniFile {
  public:
    IniFile(Files& files, std::u16string path, int ansiCodePage, ProfileFile::Decoder decoder);
    IniFile(const IniFile&) = delete;
    IniFile& operator=(const IniFile&) = delete;

    const std::u16string& Path() const { return path_; }

    // What is on disk now, read again when someone else changed the file; within a batch with the
    // changes made so far. The reference is good until the next call.
    const ProfileFile& Content();

    // KeepTime: the file's last-write time stays. Always: written even if no byte changes, so that
    // the last-write time says that it happened.
    enum class WriteMode { KeepTime, NewTime, Always };
    void Change(WriteMode, const std::function<void(ProfileFile&)>& edit);

  private:
    friend class IniBatch;
    void EndBatch();
    void Refresh();
    void WriteChanges();

    Files& files_;
    const std::u16string path_;
    const int ansiCodePage_;
    const ProfileFile::Decoder decoder_;

    ProfileFile content_;
    std::optional<FileVersion> version_; // of what `content_` was read from; none: read anew
    ReadStatus status_ = ReadStatus::NotFound;

    int batches_ = 0;
    std::optional<std::string> before_; // bytes before the first change that is not yet written
    bool keepTime_ = true, always_ = false;
};

// While one lives, changes gather in memory; the end of the outermost writes them in one step. The
// file's time is kept only when all of the changes ask for it.
class IniBatch {
  public:
    explicit IniBatch(IniFile& file) : file_(file) { ++file_.batches_; }
    ~IniBatch() { file_.EndBatch(); }
    IniBatch(const IniBatch&) = delete;
    IniBatch& operator=(const IniBatch&) = delete;

  private:
    IniFile& file_;
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
                    std::u16string_view value, bool keepFileTime = false);

// The same for a number with four decimals. 0 is always written.
void IniWriteNumber(IniFile&, std::u16string_view section, std::u16string_view key, double value,
                    bool keepFileTime = false);
