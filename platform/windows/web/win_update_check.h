// Fetching from the web on Windows.
#pragma once

#include "platform/update_check.h"
#include "platform/windows/base/win32.h"

#include <functional>

class WinUpdateCheck final : public UpdateCheck {
  public:
    // `preTranslate` sees each message first, as in the program's loop; true when it was handled.
    explicit WinUpdateCheck(std::function<bool(MSG&)> preTranslate, int timeLimit = fetchTime)
        : preTranslate_(std::move(preTranslate)), timeLimit_(timeLimit) {}
    FetchAnswer Fetch(const std::u16string& address) override;
    std::vector<std::u16string> Packages() const override { return {}; }

  private:
    bool HandleMessagesUntil(const std::function<bool()>& condition) const;

    std::function<bool(MSG&)> preTranslate_;
    int timeLimit_; // milliseconds, for all redirections together
};
