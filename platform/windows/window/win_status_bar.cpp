#include "platform/windows/window/win_status_bar.h"

#include <commctrl.h>

#include <algorithm>
#include <numeric>

namespace {

constexpr int inset = 6, textPanelWidth = 120; // pixels at 96 dpi
constexpr int edges = 3;                       // pixels above and below the text, in total
constexpr int dateRefreshInterval =
    30'000; // milliseconds; short enough to be right soon after sleep

HWND MakeControl(HWND parent) {
    INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
    // Positioned by the form, not by the control itself at the bottom of the parent.
    constexpr DWORD style =
        WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP | CCS_NORESIZE | CCS_NOPARENTALIGN;
    return CreateWindowExW(0, STATUSCLASSNAMEW, L"", style, 0, 0, 0, 0, parent, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

std::wstring Today() {
    wchar_t text[80] = {};
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text, 80, nullptr);
    return text;
}

} // namespace

WinStatusBar::WinStatusBar(HWND parent) : bar_(MakeControl(parent)), dateTimer_(parent) {
    FitFont();
}

void WinStatusBar::SetPanels(const std::vector<StatusPanel>& panels) {
    panels_ = panels;
    date_ = Today();
    LayOutPanels();
    dateTimer_.Stop();
    if (std::ranges::find(panels_, PanelStyle::Date, &StatusPanel::style) != panels_.end())
        dateTimer_.Start(dateRefreshInterval, [this] { ShowDate(); });
}

void WinStatusBar::SetHeight(int pixels) {
    height_ = pixels;
    FitFont();
    SetWindowPos(bar_, nullptr, 0, 0, width_, height_, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void WinStatusBar::SetBounds(const Rect& bounds) {
    if (WindowDpi(bar_) != fontDpi_) FitFont();
    width_ = bounds.width;
    height_ = bounds.height;
    MoveWindow(bar_, bounds.left, bounds.top, bounds.width, bounds.height, TRUE);
    LayOutPanels();
}

// The system's status font, smaller where it does not fit the height.
void WinStatusBar::FitFont() {
    fontDpi_ = WindowDpi(bar_);
    LOGFONTW font = NonClientMetricsForDpi(fontDpi_).lfStatusFont;
    font_.reset(CreateFontIndirectW(&font));
    if (MeasureText(bar_, font_.get(), L"0").cy > height_ - edges) {
        font.lfHeight = std::max(height_ - edges, 1); // positive: the cell height
        font_.reset(CreateFontIndirectW(&font));
    }
    SendMessageW(bar_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), TRUE);
}

int WinStatusBar::PanelWidth(const StatusPanel& panel) const {
    if (panel.style == PanelStyle::Date)
        return MeasureText(bar_, font_.get(), date_).cx + 2 * MulDiv(inset, fontDpi_, 96);
    return panel.spring ? 0 : MulDiv(textPanelWidth, fontDpi_, 96);
}

void WinStatusBar::LayOutPanels() {
    SendMessageW(bar_, SB_SIMPLE, panels_.empty(), 0); // a control with panels has one at least
    if (panels_.empty()) return;
    std::vector<int> widths;
    for (const StatusPanel& panel : panels_)
        widths.push_back(PanelWidth(panel));
    widths.back() += GetSystemMetrics(SM_CXVSCROLL); // covered by the size grip

    const int spare = std::max(0, width_ - std::reduce(widths.begin(), widths.end()));
    const auto springs = static_cast<int>(std::ranges::count_if(panels_, &StatusPanel::spring));
    std::vector<int> rightEdges;
    int right = 0;
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        right += widths[i] + (panels_[i].spring ? spare / springs : 0);
        rightEdges.push_back(right);
    }
    SendMessageW(bar_, SB_SETPARTS, rightEdges.size(), reinterpret_cast<LPARAM>(rightEdges.data()));
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        const bool isDate = panels_[i].style == PanelStyle::Date;
        SendMessageW(bar_, SB_SETTEXTW, i, reinterpret_cast<LPARAM>(isDate ? date_.c_str() : L""));
    }
}

void WinStatusBar::ShowDate() {
    std::wstring today = Today();
    if (today == date_) return;
    date_ = std::move(today);
    LayOutPanels();
}
