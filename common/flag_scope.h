// A flag that is set while a scope lives.
#pragma once

#include <utility>

class FlagScope {
  public:
    explicit FlagScope(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~FlagScope() { flag_ = before_; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

  private:
    bool& flag_;
    bool before_;
};
