// A message of rich text with custom buttons.
#pragma once

#include "platform/windows/dialogs/win_dialog.h"

class WinRichMessage final : public WinDialog {
  public:
    // Returns the number of the pressed button, from 1; 0 for none.
    int Ask(HWND owner, const std::string& rtf, const std::u16string& title,
            const std::vector<std::u16string>& buttons);

    enum : WORD { Text = 100, FirstButton = 1001 }; // controls

  private:
    void OnInitDialog() override;
    void OnCommand(WORD control, WORD notification) override;

    const std::string* rtf_ = nullptr;
};
