// A small window that says how far the printing is, with a button to cancel it.
#pragma once

#include "platform/windows/base/win32.h"

// While one exists its owner takes no input.
class PrintProgress {
  public:
    explicit PrintProgress(HWND owner);
    ~PrintProgress();
    PrintProgress(const PrintProgress&) = delete;
    PrintProgress& operator=(const PrintProgress&) = delete;

    bool OnProgress(int percent); // false once cancelled; handles messages now and then

  private:
    static INT_PTR CALLBACK DialogProc(HWND, UINT message, WPARAM, LPARAM);

    HWND owner_, window_ = nullptr;
    ULONGLONG last_;
    bool cancelled_ = false;
};
