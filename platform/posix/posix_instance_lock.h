// The lock that lets one data file be used by one running program only.
#pragma once

#include "platform/instance.h"
#include "platform/posix/file_descriptor.h"

#include <optional>
#include <string>

// A file beside the data file, "Norvaset.dat.lock", that is locked and says by whom. So it holds
// for all sessions and users, and on other machines as far as the file system locks across them.
class InstanceLock {
  public:
    InstanceLock() = default;
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;
    ~InstanceLock();

    // The data file need not exist. The lock is given up with this object, and by the system when
    // the process ends, however that happens; a lock file that is left then does no harm. Where no
    // lock file can be made or locked, nothing is locked and the claim is granted: a reader that
    // starts twice is better than one that never starts.
    InstanceClaim Acquire(const std::u16string& dataFilePath);
    bool IsHeld() const { return file_.IsOpen(); }

    // The lock file for a data file; none where that can have none.
    static std::optional<std::string> PathFor(const std::u16string& dataFilePath);

  private:
    FileDescriptor file_;
    std::string path_;
};
