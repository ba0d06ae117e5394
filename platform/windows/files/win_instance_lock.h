// The lock that lets one data file be used by one running program only.
#pragma once

#include "platform/instance.h"
#include "platform/windows/base/win_handle.h"

#include <string>

// A file beside the data file, "Norvaset.dat.lock", with one byte of it locked and the name of the
// holder in it. So it holds for all sessions and users, and on other machines for a file on a
// share.
class WinInstanceLock {
  public:
    WinInstanceLock() = default;
    WinInstanceLock(const WinInstanceLock&) = delete;
    WinInstanceLock& operator=(const WinInstanceLock&) = delete;
    ~WinInstanceLock();

    // The data file need not exist. The lock is given up with this object, and by the system when
    // the process ends, however that happens; a lock file that is left then does no harm. Where no
    // lock file can be made or locked, nothing is locked and the claim is granted: a reader that
    // starts twice is better than one that never starts.
    InstanceClaim Acquire(const std::u16string& dataFilePath);

  private:
    WinHandle file_;
};
