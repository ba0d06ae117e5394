// Dialogs of our own, made in memory in the system's message font, so that they are of the right
// size at every resolution.
#pragma once

#include "platform/windows/base/win32.h"

#include <string>
#include <string_view>
#include <vector>

// Classes of controls, as templates name them.
enum class ControlClass : WORD { Button = 0x80, Edit = 0x81, Static = 0x82, ComboBox = 0x85 };

struct DialogControl {
    ControlClass type = ControlClass::Static;
    WORD id = 0;
    std::wstring caption;
    DWORD style = 0;                                // beside those that all controls have
    short left = 0, top = 0, width = 0, height = 0; // dialog units
};

// A modal dialog, owned and centred. One that is derived from it fills its controls and reads them.
class WinDialog {
  public:
    // IDOK, IDCANCEL or what it was closed with; 0 when it could not be shown. `width` and `height`
    // in dialog units.
    int Run(HWND owner, const std::u16string& title, short width, short height,
            const std::vector<DialogControl>&);

  protected:
    ~WinDialog() = default;
    virtual void OnInit() = 0;
    virtual void OnCommand(WORD /*control*/, WORD /*notification*/) {}
    virtual void OnConfirm() {} // Enter or its button; only while IDOK's button is enabled

    HWND Window() const { return window_; }
    void Close(int result) const { EndDialog(window_, result); }
    HWND Control(int id) const { return GetDlgItem(window_, id); }
    std::wstring Text(int id) const;
    void SetText(int id, const std::u16string&) const;
    bool IsChecked(int id) const { return IsDlgButtonChecked(window_, id) == BST_CHECKED; }
    void Check(int id, bool on) const {
        CheckDlgButton(window_, id, on ? BST_CHECKED : BST_UNCHECKED);
    }
    // Makes a control higher by so many pixels, if any.
    void Grow(int id, int pixels) const;
    // Moves what is below a control down by so many pixels, if any, and lets the dialog grow.
    void MoveBelow(int id, int pixels) const;

  private:
    static INT_PTR CALLBACK Procedure(HWND, UINT message, WPARAM, LPARAM);
    bool Handle(UINT message, WPARAM);

    HWND window_ = nullptr;
};
