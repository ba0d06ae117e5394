// Files in memory: a fake that records what it was asked and fails where a test tells it to.
#pragma once

#include "platform/clock.h"
#include "platform/files.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

class NoneFiles : public Files {
  public:
    struct File {
        std::string bytes;
        bool readOnly = false;
        DateTime creation, lastAccess, lastWrite;
        std::uint64_t id = 0;         // a new one with each replacement
        std::int64_t writeNumber = 0; // stands for the exact last-write time
    };

    // A replaced or added file takes its stamps from `clock`, which outlives this.
    explicit NoneFiles(const Clock& clock) : clock_(clock) {}

    // What a test sets up and looks at. Adding a file makes its folders.
    File& AddFile(const std::u16string& path, std::string_view bytes); // replaces one there
    void AddFolder(const std::u16string& path);                        // and its parents
    void Remove(const std::u16string& path);
    void EditInPlace(const std::u16string& path, std::string_view bytes); // as an editor's save
    File* Find(const std::u16string& path);
    std::vector<std::u16string>
    NamesIn(const std::u16string& folder) const;         // files and folders, sorted
    std::string Bytes(const std::u16string& path) const; // "" if missing

    char16_t separator = u'/';
    bool failReplace = false;                         // every Replace fails, as on a full disk
    std::map<std::u16string, ReadStatus> readFailure; // for these paths Read returns this
    std::set<std::u16string> readOnlyFolders;         // nothing can be made or replaced in these
    std::set<std::u16string> publicFolders;           // made for everybody's temporary files
    std::set<std::u16string> othersFiles;             // of another user, who lets nobody write them

    struct ReplaceCall {
        std::u16string path;
        std::string bytes;
        WriteTime time = WriteTime::Now;
        bool done = false;
    };
    std::vector<ReplaceCall> replaceCalls;
    mutable std::vector<std::u16string> readCalls; // the paths, in order
    mutable int existsCalls = 0;                   // of FileExists
    mutable int versionCalls = 0;                  // of Version
    // The paths of files that changed, in order.
    std::shared_ptr<std::vector<std::u16string>> changes =
        std::make_shared<std::vector<std::u16string>>();

    char16_t Separator() const override { return separator; }
    bool FileExists(const std::u16string& path) const override;
    bool FolderExists(const std::u16string& path) const override;
    bool FolderIsWritable(const std::u16string& path) const override;
    bool FolderIsPublic(const std::u16string& path) const override {
        return publicFolders.contains(path);
    }
    bool CreateFolder(const std::u16string& path) override;
    bool SameFile(const std::u16string& a, const std::u16string& b) const override;
    bool IsInFolder(const std::u16string& path, const std::u16string& folder) const override;
    std::optional<FileVersion> Version(const std::u16string& path) const override;
    ReadStatus Read(const std::u16string& path, std::uint64_t limit,
                    std::string& bytes) const override;
    ReadStatus ReadStart(const std::u16string& path, std::size_t count,
                         std::string& bytes) const override;
    bool MayReplace(const std::u16string& path) const override;
    bool Replace(const std::u16string& path, std::string_view bytes, WriteTime time) override;
    std::optional<DateTime> Time(const std::u16string& path, FileTime) const override;
    bool SetTime(const std::u16string& path, const DateTime& local, FileTime) override;

  private:
    std::u16string FolderOf(const std::u16string& path) const; // "" for one at the root
    const File* Find(const std::u16string& path) const;
    bool WriteOver(const std::u16string& path, std::string_view bytes, WriteTime time);

    const Clock& clock_;
    std::map<std::u16string, File> files_;
    std::set<std::u16string> folders_;
    std::uint64_t lastId_ = 0;
    std::int64_t lastWriteNumber_ = 0;
};
