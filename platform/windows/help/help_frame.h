// The help window itself: the search field, below it the list, beside both the page.
#pragma once

#include "platform/help_window.h"
#include "platform/windows/help/win_help_list.h"
#include "platform/windows/text_view/win_text_view.h"
#include "platform/windows/window/win_native_window.h"

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
    enum Half { Search, List, Page }; // in the order of Tab

    LRESULT Answer(HWND, UINT, WPARAM, LPARAM);
    bool IsOverGap() const; // the mouse
    bool TakeMouse(UINT message, LPARAM);
    void OnCommand(int control, int notification);
    void TakeSystemLook();
    void Place();
    void LayOut();

    void ShowTypedFor(const std::u16string& typed);
    void ChooseRow(int row);
    void ShowRow(int row);
    void ShowPage(int page);

    void ListenTo(HWND control);
    static LRESULT CALLBACK OnControl(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR self);
    bool TakeKey(HWND control, int key);
    bool TakeSearchKey(int key);
    void CopySelection() const;
    HWND Control(Half) const;
    Half Focused() const;
    void Focus(Half);

    int Scaled(int pixels) const { return MulDiv(pixels, dpi_, 96); }

    HelpContents contents_;
    int shownPage_ = -1;
    int dpi_ = 96, leftWidth_; // pixels; the width at 96 dpi
    Half lastFocused_ = Search;
    WinFont font_;
    HWND search_ = nullptr;
    std::unique_ptr<WinHelpList> list_;
    std::unique_ptr<WinNativeWindow> panel_; // holds the page
    std::unique_ptr<WinTextView> text_;      // null until all are made
    WinNativeWindow frame_;                  // goes first, while what answers its messages lives
};
