// The main window on Windows: the frame, and inside it the panel that holds both views.
#pragma once

#include "common/reachable_place.h"
#include "platform/window.h"
#include "platform/windows/window/dpi.h"
#include "platform/windows/window/win_drops.h"
#include "platform/windows/window/win_input.h"
#include "platform/windows/window/win_native_window.h"

#include <functional>
#include <string>
#include <vector>

class WinWindow final : public Window {
  public:
    WinWindow();
    ~WinWindow() override;

    HWND Handle() const { return frame_.Handle(); }   // null once closed
    HWND ViewArea() const { return panel_.Handle(); } // parent of both views
    WinDrops::Tell onFilesDropped;                    // full paths

    // For a view that has its own ways with keys: `normalizeKey` comes before the form is told of a
    // key, `takeKey` after; true when the view is done with the message.
    std::function<void(MSG&)> normalizeKey;
    std::function<bool(const MSG&)> takeKey;
    void TellKeyDown(int keyCode, int shift); // as if it had been pressed

    // Every message of the program's loop passes here first: keys are told to the form, and the
    // wheel finds the view. False when the message is done with.
    bool PassMessage(MSG&);

    void SetEvents(WindowEvents) override;
    void Open() override;
    void Close() override;
    WindowState State() const override;
    void SetState(WindowState) override;
    Rect Bounds() const override;
    void Move(const Rect&) override;
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
    struct Shown {
        Rect bounds;
        int innerWidth = 0, innerHeight = 0;
        WindowState state = WindowState::Normal;
        bool operator==(const Shown&) const = default;
    };

    LRESULT Answer(HWND, UINT, WPARAM, LPARAM);
    void TakeDefaultPlace();
    void FocusView();
    void ReportChange();
    void TakeResolution(const RECT& suggested);
    void CloseWhenPossible();
    void Unload();

    WindowEvents events_;
    WinInput input_;
    WinDrops drops_{onFilesDropped};
    WinFont font_;                                  // null: the one of the device
    Shown shown_;                                   // as last reported
    std::optional<ShownInstead> instead_;           // of what `Move` asked for
    WindowState stateToOpen_ = WindowState::Normal; // until it is open
    bool open_ = false, unloaded_ = false;
    WinNativeWindow frame_, panel_;
};

// Runs the program until its window is closed.
void RunMessageLoop(WinWindow&);
