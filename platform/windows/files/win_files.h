// Files on Windows.
#pragma once

#include "platform/files.h"

#include <set>
#include <string>

// Paths may be longer than MAX_PATH and may use "/"; devices are not files. Files are opened with
// full sharing.
class WinFiles final : public Files {
  public:
    char16_t Separator() const override { return u'\\'; }
    bool FileExists(const std::u16string& path) const override;
    bool FolderExists(const std::u16string& path) const override;
    bool FolderIsWritable(const std::u16string& path) const override;
    bool FolderIsPublic(const std::u16string&) const override {
        return false;
    } // its rights say all
    bool CreateFolder(const std::u16string& path) override;
    bool SameFile(const std::u16string& a, const std::u16string& b) const override;
    bool IsInFolder(const std::u16string& path, const std::u16string& folder) const override;
    std::optional<FileVersion> Version(const std::u16string& path) const override;
    ReadStatus Read(const std::u16string& path, std::uint64_t limit,
                    std::string& bytes) const override;
    ReadStatus ReadStart(const std::u16string& path, std::size_t count,
                         std::string& bytes) const override;
    std::unique_ptr<FileReader> Open(const std::u16string& path, ReadStatus&) const override;
    bool MayReplace(const std::u16string& path) const override;
    bool Replace(const std::u16string& path, std::string_view bytes, WriteTime time) override;
    std::optional<DateTime> Time(const std::u16string& path, FileTime) const override;
    bool SetTime(const std::u16string& path, const DateTime& local, FileTime) override;

  private:
    std::set<std::wstring> replaced_; // paths whose leftovers have been removed
};
