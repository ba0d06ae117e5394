// The main window on Windows: the frame, and inside it the panel that holds both views.
#pragma once

#include "common/reachable_place.h"
#include "platform/window.h"
#include "platform/windows/base/win_native_window.h"
#include "platform/windows/window/dpi.h"
#include "platform/windows/window/win_drops.h"
#include "platform/windows/window/win_input.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

class WinWindow final : public Window {
  public:
    WinWindow();
    ~WinWindow() override;

    HWND Handle() const { return frame_.Handle(); }   // null once closed
    HWND ViewArea() const { return panel_.Handle(); } // parent of both views
    WinDrops::Handler onFilesDropped;                 // full paths

    // Hooks of a view that handles keys: `normalizeKey` runs before the key events of the form,
    // `translateKey` after them; true when the view has handled the message.
    std::function<void(MSG&)> normalizeKey;
    std::function<bool(const MSG&)> translateKey;
    void ReportKeyDown(int keyCode, int shift); // raises onKeyDown

    // For every message loop: raises the key events and sends the wheel to the view. True when the
    // message was handled and must not be dispatched.
    bool PreTranslateMessage(MSG&);

    void SetEvents(WindowEvents) override;
    void Open() override;
    void Close() override;
    void BringToFront(const std::u16string& activation) override;
    void Alert() override;
    WindowState State() const override;
    void SetState(WindowState) override;
    Rect Bounds() const override;
    void Move(const Rect&) override;
    bool IsFullScreen() const override { return windowed_.has_value(); }
    void SetFullScreen(bool) override;
    int InnerWidth() const override;
    int InnerHeight() const override;
    double TwipsPerPixelX() const override;
    double TwipsPerPixelY() const override;
    void SetTitle(std::u16string_view) override;
    void ApplySystemFont() override;
    double TextWidth(std::u16string_view) const override;
    void SetPanelBounds(const Rect&) override;
    ViewFont DefaultViewFont() const override;

  private:
    struct ReportedState {
        Rect bounds;
        int innerWidth = 0, innerHeight = 0;
        WindowState state = WindowState::Normal;
        bool operator==(const ReportedState&) const = default;
    };

    // Before it became a full screen, to be restored.
    struct WindowedState {
        WINDOWPLACEMENT placement;
        std::optional<ShownInstead> instead;
        HMENU menu;
    };

    LRESULT HandleMessage(HWND, UINT, WPARAM, LPARAM);
    void EnterFullScreen();
    void LeaveFullScreen();
    void FollowPointer(const MSG&);
    void ShowMenuBar(bool shown) const; // of a full screen
    void ShowMenuBarForKey(const MSG&) const;
    void SetDefaultBounds();
    void FocusView();
    void HandlePosChanged();
    void HandleDpiChanged(const RECT& suggested);
    void CloseWhenPossible();
    void Unload();

    WindowEvents events_;
    WinInput input_;
    WinDrops drops_{onFilesDropped};
    WinFont font_;                                   // null: the device's default
    ReportedState reported_;                         // at the last onResize
    std::optional<ShownInstead> instead_;            // of the bounds given to `Move`
    std::optional<WindowedState> windowed_;          // while full screen
    WindowState initialState_ = WindowState::Normal; // until `Open`
    bool open_ = false, unloaded_ = false;
    WinNativeWindow frame_, panel_;
};

// Runs the program until its window is closed.
void RunMessageLoop(WinWindow&);
