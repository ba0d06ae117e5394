#include "platform/windows/dialogs/win_dialogs.h"

#include "platform/windows/base/text.h"
#include "platform/windows/dialogs/common_dialogs.h"
#include "platform/windows/dialogs/message_box.h"
#include "platform/windows/dialogs/win_find_dialog.h"
#include "platform/windows/dialogs/win_place_dialog.h"
#include "platform/windows/dialogs/win_rich_message.h"
#include "platform/windows/dialogs/win_text_dialog.h"

namespace {

UINT StyleOf(const Message& message) {
    const bool two = message.buttons == MessageButtons::OkCancel;
    UINT style = two ? MB_OKCANCEL : MB_OK;
    if (two && message.cancelIsDefault) style |= MB_DEFBUTTON2;
    if (message.helpButton) style |= MB_HELP;
    switch (message.icon) {
    case MessageIcon::None: return style;
    case MessageIcon::Information: return style | MB_ICONINFORMATION;
    case MessageIcon::Question: return style | MB_ICONQUESTION;
    case MessageIcon::Exclamation: return style | MB_ICONEXCLAMATION;
    case MessageIcon::Critical: return style | MB_ICONERROR;
    case MessageIcon::Application: return style | MB_USERICON;
    }
    return style;
}

// A message about the help may appear while another message box is open, which then owns it.
HWND InFront(HWND owner) {
    return owner ? GetLastActivePopup(owner) : nullptr;
}

} // namespace

WinDialogs::WinDialogs(HWND owner) : owner_(owner) {}

OpenFileAnswer WinDialogs::OpenFile(const OpenFileRequest& request) {
    return AskFile(owner_, request);
}

std::u16string WinDialogs::AskText(const std::u16string& title, const std::u16string& prompt) {
    return WinTextDialog().Ask(owner_, title, prompt);
}

ColorAnswer WinDialogs::ChooseColor(const std::u16string& title, Color start) {
    return AskColor(owner_, title, start);
}

FontAnswer WinDialogs::ChooseFont(const FontRequest& request) {
    return AskFont(owner_, request);
}

FindAnswer WinDialogs::AskFind(const FindRequest& request) {
    return WinFindDialog().Ask(owner_, request);
}

PlaceAnswer WinDialogs::AskPlace(const PlaceRequest& request) {
    return WinPlaceDialog().Ask(owner_, request);
}

DialogResult WinDialogs::ShowMessage(const Message& message) {
    const auto help = [this, &message] {
        if (onHelp) onHelp(message.helpTopic);
    };
    const int button =
        ShowMessageBox(InFront(owner_), message.text, message.title, StyleOf(message), help);
    if (button == 0) return DialogResult::Failed;
    return button == IDOK ? DialogResult::Ok : DialogResult::Cancel;
}

int WinDialogs::ShowRichMessage(const std::string& rtf, const std::u16string& title,
                                const std::vector<std::u16string>& buttons) {
    return WinRichMessage().Ask(owner_, rtf, title, buttons);
}
