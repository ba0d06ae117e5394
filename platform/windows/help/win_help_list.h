// The list of the help window: all pages, or search results with an excerpt each.
#pragma once

#include "platform/help_window.h"
#include "platform/windows/help/help_row.h"
#include "platform/windows/window/dpi.h"

class WinHelpList {
  public:
    WinHelpList(HWND parent, int id); // which gets LBN_SELCHANGE and LBN_DBLCLK

    HWND Handle() const { return list_; }
    void ShowTitles(const std::vector<std::u16string>& titles);
    void ShowFindings(std::vector<HelpFinding> findings);
    // Null in a list of titles.
    const HelpFinding* Finding(int row) const;

    int SelectedRow() const; // -1 for none
    void Select(int row);
    void SetFont(const LOGFONTW&, int dpi);
    void FitRows(); // after the width has changed
    void Draw(const DRAWITEMSTRUCT&) const;

  private:
    void Fill(std::vector<HelpRow> rows, const std::vector<std::wstring>& names);
    int Scaled(int pixels) const { return MulDiv(pixels, dpi_, 96); }
    HelpRow::Fonts Fonts() const { return {regular_.get(), bold_.get()}; }

    HWND list_;
    std::vector<HelpFinding> findings_;
    std::vector<HelpRow> rows_;
    bool empty_ = false; // no results: the one row says so, and cannot be selected
    int dpi_ = 96, textWidth_ = 0;
    WinFont regular_, bold_;
};
