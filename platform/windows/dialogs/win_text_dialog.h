// The dialog that asks for one line of text.
#pragma once

#include "platform/windows/dialogs/win_dialog.h"

class WinTextDialog final : public WinDialog {
  public:
    // "" when cancelled.
    std::u16string Ask(HWND owner, const std::u16string& title, const std::u16string& prompt);

    enum : WORD { Prompt = 100, Line = 101 }; // controls

  private:
    void OnInitDialog() override;
    void OnOk() override;

    std::u16string prompt_, text_;
};
