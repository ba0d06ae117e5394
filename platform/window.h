// The port of the main window: frame, state, title, font measure and the events of the form.
#pragma once

#include "common/geometry.h"
#include "common/keys.h"
#include "platform/text_view.h"

#include <functional>
#include <string>
#include <string_view>

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

struct WindowEvents {
    // The window has been shown for the first time. Never from within `Open`.
    std::function<void()> onShown;
    std::function<void()> onResize; // moved, resized or changed state
    std::function<void()> onUnload; // closing; the window goes after it returns
    std::function<void(int keyCode, int shift)> onKeyDown;
    std::function<void(int keyCode, int shift)> onKeyUp;
    std::function<void(int steps)> onZoom; // Ctrl and the wheel, up is positive
    // A button of the mouse was pressed or its wheel turned anywhere in the window; before the view
    // acts on it.
    std::function<void()> onMouse;
};

class Window {
  public:
    virtual ~Window() = default;

    virtual void SetEvents(WindowEvents) = 0;
    virtual void Open() = 0;  // shows the window for the first time
    virtual void Close() = 0; // as the user's close does: `onUnload`, then gone

    // For an open window: closes open menus, restores it from an icon, and gives it, or the dialog
    // that is open on it, the keyboard as far as the desktop lets it. `activation` is what the
    // desktop gave the start that asks for it (`StartRequest`); without one a desktop may show the
    // wish alone.
    virtual void BringToFront(const std::u16string& activation) = 0;

    // What was asked for cannot be done: the system's sound for that, and the attention of the
    // title bar where the system has it. Without a message.
    virtual void Alert() = 0;

    virtual WindowState State() const = 0;
    virtual void SetState(WindowState) = 0;
    // The rectangle the window has now, with its frame, in pixels of the screen; meaningful while
    // the state is normal.
    virtual Rect Bounds() const = 0;
    // For the normal state. A rectangle that no hand could reach (`ReachablePlace`) is shown where
    // one can; then `Bounds` gives what was asked for until somebody moves or sizes the window.
    virtual void Move(const Rect&) = 0;
    // Over the whole screen, without its frame. The menu bar is away until Alt is pressed or the
    // mouse touches the screen's upper edge, and goes again when it is left. `State` and `Bounds`
    // say nothing about the window beneath then. `onResize` comes after each change, also when
    // the window system ends it. A full screen that the window system makes is `Maximized`.
    virtual bool IsFullScreen() const = 0;
    virtual void SetFullScreen(bool) = 0;
    virtual int InnerWidth() const = 0; // pixels inside frame and menu
    virtual int InnerHeight() const = 0;
    virtual double TwipsPerPixelX() const = 0; // 15 at 96 dpi
    virtual double TwipsPerPixelY() const = 0;

    virtual void SetTitle(std::u16string_view) = 0;
    virtual void ApplySystemFont() = 0;                      // the menu font becomes the window's
    virtual double TextWidth(std::u16string_view) const = 0; // pixels, in the window's font
    virtual void SetPanelBounds(const Rect&) = 0;            // the container of both views
    virtual ViewFont DefaultViewFont() const = 0;
};
