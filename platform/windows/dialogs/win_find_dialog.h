// The dialog that asks for a text to find.
#pragma once

#include "platform/dialogs.h"
#include "platform/windows/dialogs/win_dialog.h"

class WinFindDialog final : public WinDialog {
  public:
    FindAnswer Ask(HWND owner, const FindRequest&);

    enum : WORD { Label = 100, What = 101, WholeWord = 102, MatchCase = 103 }; // controls

  private:
    void OnInitDialog() override;
    void OnCommand(WORD control, WORD notification) override;
    void OnOk() override;
    void FillWhat();
    void EnableFind(bool) const;

    const FindRequest* request_ = nullptr;
    HFONT font_ = nullptr;
    std::wstring shown_; // the given text, as the dialog shows it
    FindAnswer answer_;
};
