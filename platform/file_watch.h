// The port that says when other programs change a file.
#pragma once

#include <functional>
#include <string>

// The file is known by its path: it may be written, or another may take its place, as editors save;
// it may go and come back.
class FileWatch {
  public:
    virtual ~FileWatch() = default;

    // From now on this file is watched, and no other. It need not be there.
    virtual void Watch(const std::u16string& path) = 0;
    virtual void Stop() = 0;
    // Whether the system tells of every change. Not on network drives, where other machines write,
    // and not any more once the folder has gone: who has to know looks at the file then.
    virtual bool SeesAllChanges() const = 0;

    // The file may have changed: once or more often for one change, some time after it, on the
    // user-interface thread, also while a dialog waits. Never from within a function of this port,
    // which it may call.
    std::function<void()> onChanged;
};
