// The headless window: a rectangle, a state and a title.
#pragma once

#include "common/reachable_place.h"
#include "platform/window.h"

class NoneWindow : public Window {
  public:
    void SetEvents(WindowEvents events) override { events_ = std::move(events); }
    void Open() override { open = true; }
    void Close() override;
    void BringToFront(const std::u16string& activation) override;
    void Alert() override { ++alerts; }

    WindowState State() const override { return state_; }
    void SetState(WindowState) override;
    Rect Bounds() const override { return RequestedBounds(instead_, shown_); }
    void Move(const Rect&) override;
    bool IsFullScreen() const override { return beneath_.has_value(); }
    void SetFullScreen(bool) override;
    int InnerWidth() const override { return shown_.width; }
    int InnerHeight() const override { return shown_.height - (IsFullScreen() ? 0 : MenuHeight); }
    double TwipsPerPixelX() const override { return twipsPerPixel; }
    double TwipsPerPixelY() const override { return twipsPerPixel; }

    void SetTitle(std::u16string_view text) override { title = text; }
    void ApplySystemFont() override { systemFontApplied = true; }
    double TextWidth(std::u16string_view) const override;
    void SetPanelBounds(const Rect& bounds) override { panel = bounds; }
    ViewFont DefaultViewFont() const override;

    const WindowEvents& Events() const { return events_; }
    void ComeUp() { // what the event loop does after `Open`
        if (open && events_.onShown) events_.onShown();
    }

    // A user's doing, with the event it causes.
    void DragTo(const Rect&);
    const Rect& Shown() const { return shown_; }

    static constexpr int MenuHeight = 20;
    double twipsPerPixel = 15;
    bool open = false, closed = false, systemFontApplied = false;
    int moves = 0, alerts = 0;
    std::vector<std::u16string> activations; // one for each time it came to the front
    std::vector<Rect> screens{{0, 0, 1920, 1080}};
    std::u16string title;
    Rect panel;

  private:
    WindowEvents events_;
    WindowState state_ = WindowState::Normal;
    Rect shown_{100, 80, 800, 600};
    std::optional<ShownInstead> instead_;
    std::optional<Rect> beneath_; // the rectangle of before, while full screen
};
