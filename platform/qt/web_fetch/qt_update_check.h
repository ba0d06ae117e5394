// Fetching from the web on Qt: loads the module that does it when it is first asked for.
#pragma once

#include "platform/update_check.h"

#include <QStringList>

class QtUpdateCheck final : public UpdateCheck {
  public:
    // The folders where the module may be, the first one first.
    explicit QtUpdateCheck(QStringList moduleFolders) : folders_(std::move(moduleFolders)) {}
    FetchAnswer Fetch(const std::u16string& address) override; // Failed without the module

  private:
    QStringList folders_;
};
