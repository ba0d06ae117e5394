// The dialogs on Windows.
#pragma once

#include "platform/dialogs.h"
#include "platform/windows/win32.h"

#include <functional>

class WinDialogs final : public Dialogs {
  public:
    explicit WinDialogs(HWND owner); // may be null: the dialogs then stand alone

    OpenFileAnswer OpenFile(const OpenFileRequest&) override;
    std::u16string AskText(const std::u16string& title, const std::u16string& prompt) override;
    ColorAnswer ChooseColor(const std::u16string& title, Color start) override;
    FontAnswer ChooseFont(const std::u16string& title, const ViewFont&, Color) override;
    FindAnswer AskFind(const FindRequest&) override;
    DialogResult ShowMessage(const Message&) override;
    void SetHelpFile(const std::u16string& path) override;

    // Opens this help file at a topic, for the Help button of a message; without it the file itself
    // is opened, and the topic is not reached.
    std::function<void(const std::u16string& helpFile, const std::string& topic)> onHelp;

  private:
    HWND owner_;
    std::u16string helpFile_;
};
