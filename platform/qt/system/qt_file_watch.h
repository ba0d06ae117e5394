// Changes of a file on Linux.
#pragma once

#include "platform/file_watch.h"
#include "platform/posix/file_changes.h"

#include <memory>

class QSocketNotifier;

class QtFileWatch final : public FileWatch {
  public:
    QtFileWatch();
    ~QtFileWatch() override;

    void Watch(const std::u16string& path) override;
    void Stop() override;
    bool SeesAllChanges() const override { return changes_.IsComplete(); }

  private:
    FileChanges changes_;
    std::unique_ptr<QSocketNotifier> notifier_;
};
