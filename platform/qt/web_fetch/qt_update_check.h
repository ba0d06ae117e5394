// Fetching from the web on Qt; the first call loads the module.
#pragma once

#include "platform/update_check.h"

#include <QStringList>

class QtUpdateCheck final : public UpdateCheck {
  public:
    // Searched in order for the module.
    explicit QtUpdateCheck(QStringList moduleFolders) : folders_(std::move(moduleFolders)) {}
    // FetchStatus::Failed without the module.
    FetchAnswer Fetch(const std::u16string& address) override;

  private:
    QStringList folders_;
};
