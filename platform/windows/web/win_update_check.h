// Fetching from the web on Windows.
#pragma once

#include "platform/update_check.h"
#include "platform/windows/base/win32.h"

#include <functional>

class WinUpdateCheck final : public UpdateCheck {
  public:
    // `passMessage` sees each message first, as in the program's loop: false when it is done with.
    explicit WinUpdateCheck(std::function<bool(MSG&)> passMessage, int timeLimit = fetchTime)
        : passMessage_(std::move(passMessage)), timeLimit_(timeLimit) {}
    FetchAnswer Fetch(const std::u16string& address) override;

  private:
    bool HandleMessagesUntil(const std::function<bool()>& condition) const;

    std::function<bool(MSG&)> passMessage_;
    int timeLimit_; // milliseconds, for everything together
};
