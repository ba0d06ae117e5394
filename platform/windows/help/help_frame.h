// The help window: the search field above the list at the left, the page at the right.
#pragma once

#include "platform/help_window.h"
#include "platform/windows/base/win_native_window.h"
#include "platform/windows/help/win_help_list.h"
#include "platform/windows/text_pane/win_text_view.h"

#include <memory>

class HelpFrame {
  public:
    HelpFrame();
    HelpFrame(const HelpFrame&) = delete;
    HelpFrame& operator=(const HelpFrame&) = delete;

    HWND Handle() const { return frame_.Handle(); } // null once it is closed
    void ShowContents(const HelpContents&, int page);
    void Raise();

  private:
    enum Pane { Search, List, Page }; // in tab order

    LRESULT HandleMessage(HWND, UINT, WPARAM, LPARAM);
    bool IsOverSplitter() const;
    bool HandleMouse(UINT message, LPARAM);
    void OnCommand(int control, int notification);
    void ApplySystemSettings();
    void SetDefaultBounds();
    void LayOut();

    void ShowResultsFor(const std::u16string& typed);
    void SelectRow(int row);
    void ShowRow(int row);
    void ShowPage(int page);
    void FollowLink(const std::u16string& address);

    void Subclass(HWND control);
    static LRESULT CALLBACK ControlProc(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR self);
    bool HandleKey(HWND control, int key);
    bool HandleSearchKey(int key);
    void CopySelection() const;
    HWND Control(Pane) const;
    Pane Focused() const;
    void Focus(Pane);

    int Scaled(int pixels) const { return MulDiv(pixels, dpi_, 96); }

    HelpContents contents_;
    int shownPage_ = -1;
    int dpi_ = 96, listWidth_; // the width in pixels at 96 dpi
    Pane lastFocused_ = Search;
    WinFont font_;
    HWND search_ = nullptr;
    std::unique_ptr<WinHelpList> list_;
    std::unique_ptr<WinNativeWindow> panel_; // holds the page
    std::unique_ptr<WinTextView> text_;      // created last: null until the window is complete
    WinNativeWindow frame_;                  // destroyed first: its messages use the other members
};
