// Fetching from the web on Qt; the first call loads the module.
#pragma once

#include "platform/update_check.h"

#include <QStringList>

// On a system that `osRelease` (the text of os-release, see its manual page) says to be Debian or
// made of it, the packages for its processor: the program's and, where it is installed, that of the
// HTML view's module. They name each other's version, so one alone would remove the other.
std::vector<std::u16string> SystemPackages(const QString& osRelease, const QString& processor,
                                           bool htmlModule);

class QtUpdateCheck final : public UpdateCheck {
  public:
    // Searched in order for the module.
    explicit QtUpdateCheck(QStringList moduleFolders) : folders_(std::move(moduleFolders)) {}
    // FetchStatus::Failed without the module.
    FetchAnswer Fetch(const std::u16string& address) override;
    std::vector<std::u16string> Packages() const override;

  private:
    QStringList folders_;
};
