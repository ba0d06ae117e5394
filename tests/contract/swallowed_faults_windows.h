// Faults of our code that nothing else tells of: what happens in a window procedure that the system
// called is swallowed there, on 64-bit Windows and under Wine, and the test goes on.
#pragma once

#include "platform/windows/base/win32.h"

#include <atomic>

class SwallowedFaults {
  public:
    SwallowedFaults() : handler_(AddVectoredExceptionHandler(1, Count)) {}
    ~SwallowedFaults() { RemoveVectoredExceptionHandler(handler_); }
    SwallowedFaults(const SwallowedFaults&) = delete;
    SwallowedFaults& operator=(const SwallowedFaults&) = delete;

    static int Seen() { return seen; }

  private:
    // The system's libraries have faults of their own that they expect.
    static bool IsOurs(const void* address) {
        HMODULE module = nullptr;
        return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                      GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                                  static_cast<LPCWSTR>(address), &module) &&
               module == GetModuleHandleW(nullptr);
    }
    static LONG CALLBACK Count(EXCEPTION_POINTERS* pointers) {
        const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
        if (record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION && IsOurs(record.ExceptionAddress))
            ++seen;
        return EXCEPTION_CONTINUE_SEARCH;
    }

    inline static std::atomic<int> seen = 0;
    void* handler_;
};
