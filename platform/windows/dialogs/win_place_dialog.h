// The dialog that asks for a place in the book: a per cent or a heading.
#pragma once

#include "platform/dialogs.h"
#include "platform/windows/dialogs/win_dialog.h"

class WinPlaceDialog final : public WinDialog {
  public:
    PlaceAnswer Ask(HWND owner, const PlaceRequest&);

    enum : WORD { Percent = 100, Filter = 101, List = 102, Label = 103 }; // controls

  private:
    enum class Choice { None, Percent, Heading };

    void OnInitDialog() override;
    void OnCommand(WORD control, WORD notification) override;
    void OnOk() override;
    void FillList();
    void Choose(Choice);
    void SelectRow(int row) const;
    int SelectedHeading() const;
    static LRESULT CALLBACK FilterProc(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR) noexcept;

    const PlaceRequest* request_ = nullptr;
    Choice choice_ = Choice::None; // what was changed last
    PlaceAnswer answer_;
};
