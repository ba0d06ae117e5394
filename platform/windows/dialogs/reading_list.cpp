#include "platform/windows/dialogs/reading_list.h"

#include "platform/windows/base/text.h"
#include "platform/windows/window/dpi.h"

#include <algorithm>
#include <vector>

namespace {
constexpr int visibleRows = 7;
constexpr wchar_t label[] = L"A line of this &book in each charset, likeliest first:";

RECT PlaceOf(HWND dialog, HWND control) {
    RECT place = {};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

std::vector<HWND> ControlsOf(HWND dialog) {
    std::vector<HWND> controls;
    for (HWND each = GetWindow(dialog, GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT))
        controls.push_back(each);
    return controls;
}

// The lower edge of `above` and all that stands beside it; hidden controls may be anywhere.
int BottomBeside(HWND dialog, int above) {
    const int line = PlaceOf(dialog, GetDlgItem(dialog, above)).bottom;
    int bottom = line;
    for (const HWND control : ControlsOf(dialog)) {
        const RECT place = PlaceOf(dialog, control);
        if (IsWindowVisible(control) && place.top < line)
            bottom = std::max<int>(bottom, place.bottom);
    }
    return bottom;
}

void MakeRoom(HWND dialog, int from, int height) {
    for (const HWND control : ControlsOf(dialog)) {
        const RECT place = PlaceOf(dialog, control);
        if (place.top >= from)
            SetWindowPos(control, nullptr, place.left, place.top + height, 0, 0,
                         SWP_NOSIZE | SWP_NOZORDER);
    }
    RECT whole = {};
    GetWindowRect(dialog, &whole);
    SetWindowPos(dialog, nullptr, 0, 0, whole.right - whole.left, whole.bottom - whole.top + height,
                 SWP_NOMOVE | SWP_NOZORDER);
}

HWND AddControl(HWND dialog, WORD id, const wchar_t* type, DWORD style, const RECT& place,
                HWND before) {
    const HWND control = CreateWindowExW(
        style & WS_VSCROLL ? WS_EX_CLIENTEDGE : 0, type, id == ReadingLabel ? label : L"",
        WS_CHILD | style, place.left, place.top, place.right - place.left, place.bottom - place.top,
        dialog, reinterpret_cast<HMENU>(UINT_PTR{id}), nullptr, nullptr);
    SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(SendMessageW(dialog, WM_GETFONT, 0, 0)),
                 FALSE);
    SetWindowPos(control, before, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    return control;
}

void Fill(HWND list, HFONT font, const FontRequest& request) {
    int widest = 0;
    for (const TextReading& each : request.readings)
        widest = std::max<int>(widest, MeasureText(list, font, ToWide(each.name)).cx);
    // In quarters of the average letter of the dialog's font.
    const auto average =
        std::max<int>(MeasureText(list, font, L"abcdefghijklmnopqrstuvwxyz").cx / 26, 1);
    int stop = widest * 4 / average + 8;
    SendMessageW(list, LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&stop));
    for (const TextReading& each : request.readings) {
        const std::wstring row = ToWide(each.name + u"\t" + each.line);
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
    }
}
} // namespace

void AddReadingList(HWND dialog, int above, const FontRequest& request) {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0));
    const int row = MeasureText(dialog, font, L"Ag").cy, gap = row / 2;
    RECT client = {};
    GetClientRect(dialog, &client);
    const int top = BottomBeside(dialog, above) + gap;
    RECT place = {gap, top, client.right - gap, top + row};
    const int rows = visibleRows * row + 2 * GetSystemMetrics(SM_CYEDGE);
    MakeRoom(dialog, top - gap, gap + row + gap / 2 + rows + gap);

    const HWND text =
        AddControl(dialog, ReadingLabel, L"STATIC", WS_VISIBLE, place, GetDlgItem(dialog, above));
    place.top = place.bottom + gap / 2;
    place.bottom = place.top + rows;
    const HWND list = AddControl(dialog, ReadingList, L"LISTBOX",
                                 WS_VISIBLE | WS_TABSTOP | WS_GROUP | WS_VSCROLL | LBS_NOTIFY |
                                     LBS_USETABSTOPS | LBS_NOINTEGRALHEIGHT,
                                 place, text);
    Fill(list, font, request);
    SelectReading(dialog, request.reading);
}

int SelectedReading(HWND dialog) {
    if (!GetDlgItem(dialog, ReadingList)) return -1;
    return static_cast<int>(SendDlgItemMessageW(dialog, ReadingList, LB_GETCURSEL, 0, 0));
}

void SelectReading(HWND dialog, int reading) {
    SendDlgItemMessageW(dialog, ReadingList, LB_SETCURSEL, static_cast<WPARAM>(reading), 0);
}
