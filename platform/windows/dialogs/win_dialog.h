// Dialogs of our own, from templates in memory that name the system's message font.
#pragma once

#include "platform/windows/dialogs/dialog_control.h"

#include <string>
#include <vector>

// A modal dialog, centred over its owner. Derived classes fill and read its controls.
class WinDialog {
  public:
    // Returns IDOK, IDCANCEL or the argument of `Close`; 0 when it could not be shown. `width` and
    // `height` in dialog units.
    int Run(HWND owner, const std::u16string& title, short width, short height,
            const std::vector<DialogControl>&);

  protected:
    ~WinDialog() = default;
    virtual void OnInitDialog() = 0;
    virtual void OnCommand(WORD /*control*/, WORD /*notification*/) {}
    virtual void OnOk() {} // only while IDOK's button is enabled

    HWND Window() const { return window_; }
    void Close(int result) const { EndDialog(window_, result); }
    HWND Control(int id) const { return GetDlgItem(window_, id); }
    std::wstring Text(int id) const;
    void SetText(int id, const std::u16string&) const;
    bool IsChecked(int id) const { return IsDlgButtonChecked(window_, id) == BST_CHECKED; }
    void Check(int id, bool on) const {
        CheckDlgButton(window_, id, on ? BST_CHECKED : BST_UNCHECKED);
    }
    // Makes a control higher by a positive number of pixels.
    void Grow(int id, int pixels) const;
    // Moves the controls below one down by a positive number of pixels, and makes the dialog
    // higher.
    void MoveControlsBelow(int id, int pixels) const;

  private:
    static INT_PTR CALLBACK DialogProc(HWND, UINT message, WPARAM, LPARAM);
    bool HandleMessage(UINT message, WPARAM);

    HWND window_ = nullptr;
};
