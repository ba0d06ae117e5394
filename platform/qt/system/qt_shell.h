// The desktop, through the tools of freedesktop.org.
#pragma once

#include "platform/posix/posix_instance_lock.h"
#include "platform/posix/posix_start_requests.h"
#include "platform/qt/system/recent_documents.h"
#include "platform/shell.h"

#include <memory>

class QSocketNotifier;

class QtShell final : public Shell {
  public:
    // `activation`: what the desktop gave this start to come to the front with, or "".
    explicit QtShell(std::u16string activation = {});
    ~QtShell() override;

    std::u16string DefaultTextEditor() const override; // xdg-open
    void OpenWith(const std::u16string& program, const std::u16string& argument) override;
    void OpenAddress(const std::u16string& address) override;
    void OpenFile(const std::u16string& path) override;
    void AddRecentDocument(const std::u16string& path) override;
    InstanceClaim ClaimDataFile(const std::u16string& path) override;
    HandOver HandOverBook(const std::u16string& dataFile, const std::u16string& book,
                          int milliseconds) override;

  private:
    void AnswerStartRequest();

    const std::u16string activation_;
    RecentDocuments recentDocuments_;
    InstanceLock lock_;
    StartRequestListener listener_; // goes before the lock: it is in the lock's place
    std::unique_ptr<QSocketNotifier> notifier_;
};
