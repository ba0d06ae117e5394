// A window of our own class for a pane: scroll bars, painting, keys and mouse.
#pragma once

#include "platform/windows/base/win_native_window.h"
#include "platform/windows/line_layout/win_line_layout.h"
#include "platform/windows/line_layout/win_pictures.h"
#include "view/view_pane.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

class PaneHost : protected PaneWindow {
  public:
    PaneHost(const wchar_t* className, HWND parent);
    PaneHost(const PaneHost&) = delete;
    PaneHost& operator=(const PaneHost&) = delete;

    HWND Handle() const { return window_.Handle(); }
    void SetCursorShape(CursorShape shape);

    std::function<void(POINT onScreen)> onContextMenu;
    std::function<void(std::vector<std::u16string> paths)> onDrop;
    std::function<void()> onCopy;

  protected:
    void SetPane(ViewPane& pane); // once, by the constructor of the derived class
    LineLayout& Lines() { return lines_; }
    PictureStore& Pictures() { return pictures_; }
    // Before the pane; none: it is the pane's or the system's.
    virtual std::optional<LRESULT> OnMessage(UINT, WPARAM, LPARAM) { return std::nullopt; }
    virtual bool OnPress(Point) { return false; }
    virtual bool OnKey(int) { return false; }
    virtual void PaintOver(HDC) {}

    void OnTextChanging() override {}
    void OnTextChanged() override {}
    void OnSelectionChanged(TextPos anchorBefore, TextPos caretBefore) override;
    void OnVisibleTextChanged() override {}

  private:
    Size Room() const override;
    double Dpi() const override;
    bool HasFocus() const override { return GetFocus() == Handle(); }
    int BlinkInterval() const override;
    void Redraw() override;
    void RedrawPart(const Rect& part) override;
    void SetHorizontalBar(bool shown) final; // called by the constructor
    void ShowVertical(const ScrollRange& range) override;
    void ShowHorizontal(const ScrollRange& range) override;
    void StartTimer(PaneTimer timer, int milliseconds) override;
    void StopTimer(PaneTimer timer) override;
    std::chrono::milliseconds SteadyTime() const override;

    LRESULT HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleInput(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleMouse(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleKey(int key);
    void HandleClick(POINT point, bool extend);
    void HandleRightClick(POINT onScreen);
    enum class WheelAxis : std::uint8_t { Vertical, Horizontal };
    void HandleWheel(int turn, WheelAxis);
    void HandleVerticalScroll(int request);
    void HandleHorizontalScroll(int request);
    bool HandleSetCursor(LPARAM where) const;
    void RequestContextMenu();
    void UpdateSystemStyle();
    void Paint();
    void PlaceSystemCaret();

    WinLineLayout lines_;
    WinPictures pictures_;
    ViewPane* pane_ = nullptr;
    bool horizontalBar_ = false;
    CursorShape cursor_ = CursorShape::Default;
    int wheelRemainder_ = 0, sidewaysRemainder_ = 0; // lines, times the turn of a notch
    POINT clicked_ = {};
    DWORD clickTime_ = 0;
    int clicks_ = 0; // in a row
    WinNativeWindow window_;
};
