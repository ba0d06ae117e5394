#include "platform/windows/help/win_help_list.h"

#include "platform/windows/base/text.h"

#include <algorithm>

namespace {

constexpr int padding = 5;        // pixels around a row at 96 dpi
constexpr int titlePadding = 3;   // above and below a title
constexpr int maxRowHeight = 255; // of a list box

HelpRow RowOf(const HelpFinding& finding) {
    HelpRow row;
    row.Add(ToWide(finding.title), true);
    row.EndLine();
    std::size_t done = 0;
    const std::u16string& excerpt = finding.excerpt;
    for (const HelpSpan& mark : finding.marks) {
        const auto start = std::min(static_cast<std::size_t>(mark.start), excerpt.size());
        const auto length = static_cast<std::size_t>(mark.length);
        row.Add(ToWide(excerpt.substr(done, start - done)), false);
        row.Add(ToWide(excerpt.substr(start, length)), true);
        done = std::min(start + length, excerpt.size());
    }
    row.Add(ToWide(excerpt.substr(done)), false);
    return row;
}

HelpRow PlainRow(const std::wstring& text) {
    HelpRow row;
    row.Add(text, false);
    return row;
}

} // namespace

WinHelpList::WinHelpList(HWND parent, int id)
    : list_(CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", L"",
                            WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_VSCROLL | LBS_NOTIFY |
                                LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWVARIABLE | LBS_HASSTRINGS,
                            0, 0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                            GetModuleHandleW(nullptr), nullptr)) {}

void WinHelpList::ShowTitles(const std::vector<std::u16string>& titles) {
    findings_.clear();
    empty_ = false;
    std::vector<HelpRow> rows;
    std::vector<std::wstring> names;
    for (const std::u16string& title : titles) {
        names.push_back(ToWide(title));
        rows.push_back(PlainRow(names.back()));
    }
    Fill(std::move(rows), names);
}

void WinHelpList::ShowFindings(std::vector<HelpFinding> findings) {
    findings_ = std::move(findings);
    empty_ = findings_.empty();
    std::vector<HelpRow> rows;
    std::vector<std::wstring> names;
    for (const HelpFinding& finding : findings_) {
        names.push_back(ToWide(finding.title));
        rows.push_back(RowOf(finding));
    }
    if (empty_) {
        names.push_back(L"Nothing was found.");
        rows.push_back(PlainRow(names.back()));
    }
    Fill(std::move(rows), names);
}

// `names` are the item strings, which screen readers read.
void WinHelpList::Fill(std::vector<HelpRow> rows, const std::vector<std::wstring>& names) {
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list_, LB_RESETCONTENT, 0, 0);
    rows_ = std::move(rows);
    for (const std::wstring& name : names)
        SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    FitRows();
    SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
}

// The width always leaves room for the scroll bar.
void WinHelpList::FitRows() {
    RECT frame = {};
    GetWindowRect(list_, &frame);
    const int edges = 2 * GetSystemMetrics(SM_CXEDGE) + GetSystemMetrics(SM_CXVSCROLL);
    textWidth_ = frame.right - frame.left - edges - 2 * Scaled(padding);
    const HDC context = GetDC(list_);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const int around = Scaled(findings_.empty() ? titlePadding : padding);
        const int height = rows_[i].Height(context, Fonts(), textWidth_) + 2 * around;
        SendMessageW(list_, LB_SETITEMHEIGHT, i, std::min(height, maxRowHeight));
    }
    ReleaseDC(list_, context);
    InvalidateRect(list_, nullptr, TRUE);
}

const HelpFinding* WinHelpList::Finding(int row) const {
    return row >= 0 && row < std::ssize(findings_) ? &findings_[static_cast<std::size_t>(row)]
                                                   : nullptr;
}

int WinHelpList::SelectedRow() const {
    return empty_ ? -1 : static_cast<int>(SendMessageW(list_, LB_GETCURSEL, 0, 0));
}

void WinHelpList::Select(int row) {
    SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

void WinHelpList::SetFont(const LOGFONTW& font, int dpi) {
    dpi_ = dpi;
    LOGFONTW bold = font;
    bold.lfWeight = FW_BOLD;
    regular_.reset(CreateFontIndirectW(&font));
    bold_.reset(CreateFontIndirectW(&bold));
    FitRows();
}

void WinHelpList::Draw(const DRAWITEMSTRUCT& item) const {
    if (item.itemID >= rows_.size()) return; // an empty list's focus
    const bool selected = (item.itemState & ODS_SELECTED) && !empty_;
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    SetBkMode(item.hDC, TRANSPARENT);
    const int color = selected ? COLOR_HIGHLIGHTTEXT : empty_ ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT;
    SetTextColor(item.hDC, GetSysColor(color));
    RECT place = item.rcItem;
    InflateRect(&place, -Scaled(padding), -Scaled(findings_.empty() ? titlePadding : padding));
    place.right = place.left + textWidth_;
    rows_[item.itemID].Draw(item.hDC, Fonts(), place);
    if ((item.itemState & ODS_FOCUS) && !(item.itemState & ODS_NOFOCUSRECT))
        DrawFocusRect(item.hDC, &item.rcItem);
}
