// The lock that lets one data file be used by one running program only.
#pragma once

#include "platform/posix/file_descriptor.h"

#include <string>

class InstanceLock {
  public:
    // Takes the lock of this data file, which need not exist nor its folder be writable: the lock
    // is a file in $XDG_RUNTIME_DIR, else in a folder of the user's own under /tmp. False while
    // another lock on it is held, in this process or another of the same user. It is given up with
    // this object, and by the system when the process ends, however that happens. Where no lock
    // file can be made at all, nothing is locked and the answer is true: a reader that starts twice
    // is better than one that never starts.
    bool Acquire(const std::u16string& dataFilePath);

  private:
    FileDescriptor file_;
};
