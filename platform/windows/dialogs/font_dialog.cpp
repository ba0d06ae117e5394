#include "platform/windows/dialogs/common_dialogs.h"

#include "platform/shared/reading_of_script.h"
#include "platform/windows/base/text.h"
#include "platform/windows/dialogs/reading_list.h"
#include "platform/windows/window/center.h"
#include "platform/windows/window/dpi.h"

#include <commdlg.h>
#include <dlgs.h>

#include <cmath>

namespace {

// The controls of the system's font dialog.
constexpr int FaceBox = cmb1, StyleBox = cmb2, SizeBox = cmb3, ColorBox = cmb4, ScriptBox = cmb5;

// The contents of the dialog's controls.
struct ShownFont {
    std::wstring face, style, size, script;
    LRESULT color = CB_ERR;
};

struct FontDialogState {
    const FontRequest& request;
    ShownFont first, last;
    int reading = -1;
    bool followsReading = false; // the script box, at the moment
};

constexpr UINT ScriptChosen = WM_APP + 1; // posted by the hook to itself

std::wstring TextOf(HWND dialog, int control) {
    wchar_t text[256] = {};
    GetDlgItemTextW(dialog, control, text, static_cast<int>(std::size(text)));
    return text;
}

LRESULT ChosenColor(HWND dialog) {
    const LRESULT index = SendDlgItemMessageW(dialog, ColorBox, CB_GETCURSEL, 0, 0);
    if (index == CB_ERR) return CB_ERR;
    return SendDlgItemMessageW(dialog, ColorBox, CB_GETITEMDATA, static_cast<WPARAM>(index), 0);
}

ShownFont ReadControls(HWND dialog) {
    return {TextOf(dialog, FaceBox), TextOf(dialog, StyleBox), TextOf(dialog, SizeBox),
            TextOf(dialog, ScriptBox), ChosenColor(dialog)};
}

// The dialog lists sixteen colours and would select black for any other, so that one is added.
void SelectColor(HWND dialog, Color color) {
    if (ChosenColor(dialog) == static_cast<LRESULT>(color)) return;
    const auto name = reinterpret_cast<LPARAM>(L"Custom");
    const LRESULT added = SendDlgItemMessageW(dialog, ColorBox, CB_ADDSTRING, 0, name);
    if (added < 0) return;
    const auto index = static_cast<WPARAM>(added);
    SendDlgItemMessageW(dialog, ColorBox, CB_SETITEMDATA, index, static_cast<LPARAM>(color));
    SendDlgItemMessageW(dialog, ColorBox, CB_SETCURSEL, index, 0);
}

std::wstring SizeText(double points) {
    const long tenths = std::lround(points * 10);
    const std::wstring whole = std::to_wstring(tenths / 10);
    return tenths % 10 == 0 ? whole : whole + L'.' + std::to_wstring(tenths % 10);
}

// In place of an entry of the list, which may have it or not.
void ShowInBox(HWND dialog, int box, const std::wstring& text) {
    const auto entry = SendDlgItemMessageW(dialog, box, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                           reinterpret_cast<LPARAM>(text.c_str()));
    SendDlgItemMessageW(dialog, box, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
    SetDlgItemTextW(dialog, box, text.c_str());
}

// Of a face that is not installed the dialog shows no name, Wine's the first of the list in its
// smallest size.
void ShowMissingFont(HWND dialog, const ViewFont& font) {
    const std::wstring face = ToWide(font.name);
    if (face.empty() || EqualsIgnoringCase(TextOf(dialog, FaceBox), face)) return;
    ShowInBox(dialog, FaceBox, face);
    ShowInBox(dialog, SizeBox, SizeText(font.size));
}

void OnInitDialog(HWND dialog, FontDialogState& state) {
    SetWindowTextW(dialog, ToWide(state.request.title).c_str());
    SelectColor(dialog, state.request.color);
    ShowMissingFont(dialog, state.request.font);
    state.first = state.last = ReadControls(dialog);
    if (!state.request.readings.empty()) AddReadingList(dialog, ScriptBox, state.request);
    CenterOver(dialog, GetWindow(dialog, GW_OWNER));
}

const TextReading* ReadingAt(const FontDialogState& state, int index) {
    return index < 0 ? nullptr : &state.request.readings[static_cast<std::size_t>(index)];
}

// The entry of the box for the script of a reading. The box has the scripts of the face alone; its
// items hold their character sets.
LRESULT ScriptIndex(HWND dialog, const FontDialogState& state, int reading) {
    const HWND box = GetDlgItem(dialog, ScriptBox);
    if (reading == state.request.reading)
        return SendMessageW(box, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                            reinterpret_cast<LPARAM>(state.first.script.c_str()));
    const LRESULT count = SendMessageW(box, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i)
        if (SendMessageW(box, CB_GETITEMDATA, static_cast<WPARAM>(i), 0) ==
            ReadingAt(state, reading)->charset)
            return i;
    return CB_ERR;
}

void SelectScriptOfReading(HWND dialog, FontDialogState& state) {
    const int reading = SelectedReading(dialog);
    const LRESULT index = reading < 0 ? CB_ERR : ScriptIndex(dialog, state, reading);
    if (index == CB_ERR) return;
    SendDlgItemMessageW(dialog, ScriptBox, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    state.followsReading = true;
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(ScriptBox, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, ScriptBox)));
    state.followsReading = false;
}

// A text that reads in any script, as Unicode does, stays as it is.
void SelectReadingOfScript(HWND dialog, const FontDialogState& state) {
    const TextReading* const present = ReadingAt(state, SelectedReading(dialog));
    if (present && present->charset < 0) return;
    if (TextOf(dialog, ScriptBox) == state.first.script)
        return SelectReading(dialog, state.request.reading);
    LOGFONTW chosen = {};
    SendMessageW(dialog, WM_CHOOSEFONT_GETLOGFONT, 0, reinterpret_cast<LPARAM>(&chosen));
    SelectReading(dialog, ReadingOfScript(state.request.readings, chosen.lfCharSet));
}

// Runs before the dialog's own procedure.
void OnCommand(HWND dialog, FontDialogState& state, WORD control, WORD notification) {
    if (control == IDOK) {
        state.last = ReadControls(dialog);
        state.reading = SelectedReading(dialog);
    }
    if (state.request.readings.empty()) return;
    if (control == ReadingList && notification == LBN_SELCHANGE)
        SelectScriptOfReading(dialog, state);
    if (control == ScriptBox && notification == CBN_SELCHANGE && !state.followsReading)
        PostMessageW(dialog, ScriptChosen, 0, 0); // once the dialog knows the script
}

UINT_PTR CALLBACK HookProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto* request = reinterpret_cast<const CHOOSEFONTW*>(lParam);
        SetWindowLongPtrW(dialog, DWLP_USER, request->lCustData);
        OnInitDialog(dialog, *reinterpret_cast<FontDialogState*>(request->lCustData));
    }
    auto* state = reinterpret_cast<FontDialogState*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (state && message == WM_COMMAND) OnCommand(dialog, *state, LOWORD(wParam), HIWORD(wParam));
    if (state && message == ScriptChosen) SelectReadingOfScript(dialog, *state);
    return 0;
}

ViewFont ChosenFont(const FontDialogState& state, const LOGFONTW& chosen, int tenthsOfPoints) {
    ViewFont font = state.request.font;
    if (state.last.face != state.first.face) font.name = FromWide(chosen.lfFaceName);
    if (state.last.size != state.first.size) font.size = tenthsOfPoints / 10.0;
    if (state.last.script != state.first.script) font.charset = chosen.lfCharSet;
    if (state.last.style != state.first.style) {
        font.bold = chosen.lfWeight > FW_MEDIUM;
        font.italic = chosen.lfItalic != 0;
    }
    font.underline = chosen.lfUnderline != 0;
    font.strikethrough = chosen.lfStrikeOut != 0;
    return font;
}

} // namespace

FontAnswer AskFont(HWND owner, const FontRequest& asked) {
    FontDialogState state{asked, {}, {}};
    LOGFONTW chosen = ToLogFont(asked.font, SystemDpi());
    CHOOSEFONTW request = {};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpLogFont = &chosen;
    request.Flags = CF_SCREENFONTS | CF_EFFECTS | CF_INITTOLOGFONTSTRUCT | CF_ENABLEHOOK;
    request.rgbColors = asked.color;
    request.lCustData = reinterpret_cast<LPARAM>(&state);
    request.lpfnHook = HookProc;
    if (!ChooseFontW(&request)) {
        const bool failed = CommDlgExtendedError() != 0;
        return {failed ? DialogResult::Failed : DialogResult::Cancel, asked.font, asked.color,
                asked.reading};
    }
    const bool recolored = state.last.color != state.first.color && state.last.color != CB_ERR;
    return {DialogResult::Ok, ChosenFont(state, chosen, request.iPointSize),
            recolored ? static_cast<Color>(state.last.color) : asked.color, state.reading};
}
