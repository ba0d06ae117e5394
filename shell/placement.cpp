#include "shell/placement.h"

#include "common/text.h"

#include <algorithm>

namespace {
int Twips(int pixels, double perPixel) {
    return RoundToEven(pixels * perPixel);
}
int Pixels(int twips, double perPixel) {
    return RoundToEven(twips / perPixel);
}

WindowState StateOf(int number) {
    return number == 1   ? WindowState::Minimized
           : number == 2 ? WindowState::Maximized
                         : WindowState::Normal;
}

bool IsNormal(const Window& window) {
    return window.State() == WindowState::Normal && !window.IsFullScreen();
}

void RememberNormalRectangle(WindowPlacement& placement, const Window& window) {
    const Rect bounds = window.Bounds();
    placement.Left = Twips(bounds.left, window.TwipsPerPixelX());
    placement.Top = Twips(bounds.top, window.TwipsPerPixelY());
    placement.Width = Twips(bounds.width, window.TwipsPerPixelX());
    placement.Height = Twips(bounds.height, window.TwipsPerPixelY());
}
} // namespace

void MoveToPlacement(const WindowPlacement& placement, Window& window) {
    const double x = window.TwipsPerPixelX(), y = window.TwipsPerPixelY();
    window.Move({Pixels(placement.Left, x), Pixels(placement.Top, y), Pixels(placement.Width, x),
                 Pixels(placement.Height, y)});
}

void FollowWindow(WindowPlacement& placement, Window& window) {
    if (window.IsFullScreen()) return;
    const bool wasNormal = placement.State == static_cast<int>(WindowState::Normal);
    if (window.State() == WindowState::Normal && !wasNormal) MoveToPlacement(placement, window);
    placement.State = static_cast<int>(window.State());
    if (window.State() == WindowState::Normal) RememberNormalRectangle(placement, window);
}

void SaveWindowPlacement(WindowPlacement& placement, IniFile& file, const std::u16string& profile,
                         const Window& window) {
    if (IsNormal(window)) RememberNormalRectangle(placement, window);
    const double x = window.TwipsPerPixelX(), y = window.TwipsPerPixelY();
    IniBatch oneWrite(file);
    IniWriteNumber(file, profile, u"Left", placement.Left / x);
    IniWriteNumber(file, profile, u"Top", placement.Top / y);
    IniWriteNumber(file, profile, u"Width", placement.Width / x);
    IniWriteNumber(file, profile, u"Height", placement.Height / y);
    IniWriteNumber(file, profile, u"State", placement.State);
    oneWrite.Commit();
}

WindowPlacement LoadWindowPlacement(IniFile& file, const std::u16string& profile, Window& window) {
    const Rect now = window.Bounds();
    const auto read = [&](const char16_t* key, int present, double perPixel) {
        constexpr double maxPixels = 32767; // what window systems can place
        const double pixels = IniReadNumber(file, profile, key, present);
        return RoundToEven(std::clamp(pixels, -maxPixels, maxPixels) * perPixel);
    };
    WindowPlacement placement;
    placement.Left = read(u"Left", now.left, window.TwipsPerPixelX());
    placement.Top = read(u"Top", now.top, window.TwipsPerPixelY());
    placement.Width = read(u"Width", now.width, window.TwipsPerPixelX());
    placement.Height = read(u"Height", now.height, window.TwipsPerPixelY());
    placement.State = read(u"State", static_cast<int>(window.State()), 1);
    if (!window.IsFullScreen()) window.SetState(StateOf(placement.State));
    return placement;
}

void LeaveFullScreen(const WindowPlacement& placement, Window& window) {
    window.SetFullScreen(false);
    const WindowState state = StateOf(placement.State);
    window.SetState(state);
    if (state == WindowState::Normal) MoveToPlacement(placement, window);
}
