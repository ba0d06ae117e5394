#include "platform/windows/win_dialogs.h"

#include "platform/windows/win_color_dialog.h"
#include "platform/windows/win_file_dialog.h"
#include "platform/windows/win_find_dialog.h"
#include "platform/windows/win_font_dialog.h"
#include "platform/windows/win_message_box.h"
#include "platform/windows/win_text.h"
#include "platform/windows/win_text_dialog.h"

#include <shellapi.h>

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
    }
    return style;
}

void OpenDocument(HWND owner, const std::u16string& path) {
    const std::wstring file = ToWide(path);
    if (file.empty()) return;
    SHELLEXECUTEINFOW request = {};
    request.cbSize = sizeof request;
    request.fMask = SEE_MASK_FLAG_NO_UI;
    request.hwnd = owner;
    request.lpVerb = L"open";
    request.lpFile = file.c_str();
    request.nShow = SW_SHOWNORMAL;
    ShellExecuteExW(&request);
}

} // namespace

WinDialogs::WinDialogs(HWND owner) : owner_(owner) {}

void WinDialogs::SetHelpFile(const std::u16string& path) {
    helpFile_ = path;
}

OpenFileAnswer WinDialogs::OpenFile(const OpenFileRequest& request) {
    return AskFile(owner_, request);
}

std::u16string WinDialogs::AskText(const std::u16string& title, const std::u16string& prompt) {
    return WinTextDialog().Ask(owner_, title, prompt);
}

ColorAnswer WinDialogs::ChooseColor(const std::u16string& title, Color start) {
    return AskColor(owner_, title, start);
}

FontAnswer WinDialogs::ChooseFont(const std::u16string& title, const ViewFont& font, Color color) {
    return AskFont(owner_, title, font, color);
}

FindAnswer WinDialogs::AskFind(const FindRequest& request) {
    return WinFindDialog().Ask(owner_, request);
}

DialogResult WinDialogs::ShowMessage(const Message& message) {
    const auto showHelp = [this, &message] {
        if (onHelp)
            onHelp(helpFile_, message.helpTopic);
        else
            OpenDocument(owner_, helpFile_);
    };
    const int button =
        ShowMessageBox(owner_, message.text, message.title, StyleOf(message), showHelp);
    if (button == 0) return DialogResult::Failed;
    return button == IDOK ? DialogResult::Ok : DialogResult::Cancel;
}
