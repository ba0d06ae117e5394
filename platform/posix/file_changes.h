// What inotify says of one file.
#pragma once

#include "platform/posix/file_descriptor.h"

#include <string>
#include <vector>

struct inotify_event;

// Its folder is watched, and that of the file which it links to: a new file that takes the name of
// the old one is another one for the system. The file itself is watched for those who write it by
// another name.
class FileChanges {
  public:
    FileChanges() = default;
    explicit FileChanges(std::string path);

    int Number() const { return queue_.Number(); } // readable when something has happened; or -1
    bool IsComplete() const { return complete_; }  // no change can be missed

    // Takes what has happened; whether something of it is of the file.
    bool Take();

  private:
    struct Folder {
        int watch = -1;
        std::string name; // of the file in it
    };
    void AddFolderOf(const std::string& path);
    void WatchFile();
    bool IsOfFile(const inotify_event&);

    std::string path_;
    FileDescriptor queue_;
    std::vector<Folder> folders_;
    int file_ = -1;
    bool complete_ = false;
};
