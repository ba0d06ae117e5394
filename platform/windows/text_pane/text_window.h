// The window of the text view: a window of our own class for a text pane.
#pragma once

#include "platform/windows/line_layout/win_line_layout.h"
#include "platform/windows/line_layout/win_pictures.h"
#include "platform/windows/text_pane/accessibility/text_accessibility.h"
#include "platform/windows/window/win_native_window.h"
#include "view/text_pane.h"

#include <functional>
#include <string>
#include <vector>

class TextWindow : private PaneWindow {
  public:
    explicit TextWindow(HWND parent);
    TextWindow(const TextWindow&) = delete;
    TextWindow& operator=(const TextWindow&) = delete;

    static TextWindow* Of(HWND window); // null for another window
    HWND Handle() const { return window_.Handle(); }
    TextPane& Pane() { return pane_; }
    ComPtr<TextProvider> Accessible() { return accessibility_.Provider(Handle()); }
    void SetPointer(Pointer pointer);

    std::function<void(POINT onScreen)> onContextMenu;
    std::function<void(std::vector<std::u16string> paths)> onDrop;
    std::function<void()> onCopy, onPlaceholderLink;

  private:
    Size Room() const override;
    double Dpi() const override;
    bool HasFocus() const override { return GetFocus() == Handle(); }
    int BlinkInterval() const override;
    void Redraw() override;
    void RedrawPart(const Rect& part) override;
    void SetHorizontalBar(bool shown) override;
    void ShowVertical(const ScrollRange& range) override;
    void ShowHorizontal(const ScrollRange& range) override;
    void StartTimer(PaneTimer timer, int milliseconds) override;
    void StopTimer(PaneTimer timer) override;
    void OnTextChanging() override {}
    void OnTextChanged() override;
    void OnSelectionChanged(TextPos anchorBefore, TextPos caretBefore) override;
    void OnVisibleTextChanged() override {}

    LRESULT HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleInput(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleMouse(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleKey(int key);
    void HandleClick(POINT point, bool extend);
    void HandleRightClick(POINT point);
    void HandleWheel(int turn, bool sideways);
    void HandleVerticalScroll(int request);
    void HandleHorizontalScroll(int request);
    bool HandleSetCursor(LPARAM where) const;
    void RequestContextMenu();
    void UpdateSystemStyle();
    void Paint();
    void PlaceSystemCaret();

    WinLineLayout lines_;
    WinPictures pictures_;
    bool horizontalBar_ = false;
    Pointer pointer_ = Pointer::Default;
    int wheelRemainder_ = 0, sidewaysRemainder_ = 0; // lines, times the turn of a notch
    POINT clicked_ = {};
    DWORD clickTime_ = 0;
    int clicks_ = 0; // in a row
    TextPane pane_{*this, lines_, pictures_};
    TextAccessibility accessibility_{pane_};
    WinNativeWindow window_; // destroyed first: its messages use the other members
};
