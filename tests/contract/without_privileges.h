// Rights mean nothing to the superuser: for a while this process is somebody else.
#pragma once

#include <doctest/doctest.h>

#include <unistd.h>

class WithoutPrivileges {
  public:
    explicit WithoutPrivileges(uid_t user = 65534) {
        if (wasRoot_) REQUIRE(seteuid(user) == 0);
    }
    ~WithoutPrivileges() {
        if (wasRoot_) static_cast<void>(seteuid(0));
    }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

  private:
    const bool wasRoot_ = geteuid() == 0;
};
