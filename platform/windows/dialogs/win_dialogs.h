// The dialogs on Windows.
#pragma once

#include "platform/dialogs.h"
#include "platform/windows/base/win32.h"

class WinDialogs final : public Dialogs {
  public:
    explicit WinDialogs(HWND owner); // may be null: the dialogs then stand alone

    OpenFileAnswer OpenFile(const OpenFileRequest&) override;
    std::u16string AskText(const std::u16string& title, const std::u16string& prompt) override;
    ColorAnswer ChooseColor(const std::u16string& title, Color start) override;
    FontAnswer ChooseFont(const FontRequest&) override;
    FindAnswer AskFind(const FindRequest&) override;
    PlaceAnswer AskPlace(const PlaceRequest&) override;
    DialogResult ShowMessage(const Message&) override;
    int ShowRichMessage(const std::string& rtf, const std::u16string& title,
                        const std::vector<std::u16string>& buttons) override;

  private:
    HWND owner_;
};
