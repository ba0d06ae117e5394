// Owns a kernel handle.
#pragma once

#include "platform/windows/base/win32.h"

#include <utility>

class WinHandle {
  public:
    // Null and INVALID_HANDLE_VALUE both mean none.
    explicit WinHandle(HANDLE handle = nullptr)
        : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    WinHandle(WinHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    WinHandle& operator=(WinHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~WinHandle() { Close(); }

    bool IsOpen() const { return handle_ != nullptr; }
    HANDLE Get() const { return handle_; }
    bool Close() { return !handle_ || CloseHandle(std::exchange(handle_, nullptr)); }

  private:
    HANDLE handle_;
};
