// Lets only one running program use a data file.
#pragma once

#include "platform/instance.h"
#include "platform/windows/base/win_handle.h"

#include <optional>
#include <string>

// A file beside the data file, "Norvaset.dat.lock", with a byte-range lock and the holder's name in
// it. So the lock is seen by all sessions and users, and on a share by other machines.
class WinInstanceLock {
  public:
    WinInstanceLock() = default;
    WinInstanceLock(const WinInstanceLock&) = delete;
    WinInstanceLock& operator=(const WinInstanceLock&) = delete;
    ~WinInstanceLock();

    // The data file need not exist. The lock is released by the destructor, or by the system when
    // the process ends; a lock file left behind does no harm. Where no lock file can be created or
    // locked, the claim is granted: a reader that starts twice is better than one that never
    // starts.
    InstanceClaim Acquire(const std::u16string& dataFilePath);
    bool IsHeld() const { return file_.IsOpen(); }

    // The lock file for a data file; none where that can have none.
    static std::optional<std::wstring> PathFor(const std::u16string& dataFilePath);

  private:
    WinHandle file_;
};
