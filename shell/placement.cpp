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
    placement.left = Twips(bounds.left, window.TwipsPerPixelX());
    placement.top = Twips(bounds.top, window.TwipsPerPixelY());
    placement.width = Twips(bounds.width, window.TwipsPerPixelX());
    placement.height = Twips(bounds.height, window.TwipsPerPixelY());
}
} // namespace

void MoveToPlacement(const WindowPlacement& placement, Window& window) {
    const double x = window.TwipsPerPixelX(), y = window.TwipsPerPixelY();
    window.Move({Pixels(placement.left, x), Pixels(placement.top, y), Pixels(placement.width, x),
                 Pixels(placement.height, y)});
}

void FollowWindow(WindowPlacement& placement, Window& window) {
    if (window.IsFullScreen()) return;
    const bool wasNormal = placement.state == static_cast<int>(WindowState::Normal);
    if (window.State() == WindowState::Normal && !wasNormal) MoveToPlacement(placement, window);
    placement.state = static_cast<int>(window.State());
    if (window.State() == WindowState::Normal) RememberNormalRectangle(placement, window);
}

void SaveWindowPlacement(WindowPlacement& placement, IniFile& file, const std::u16string& profile,
                         const Window& window) {
    if (IsNormal(window)) RememberNormalRectangle(placement, window);
    const double x = window.TwipsPerPixelX(), y = window.TwipsPerPixelY();
    IniBatch oneWrite(file);
    IniWriteNumber(file, profile, u"Left", placement.left / x);
    IniWriteNumber(file, profile, u"Top", placement.top / y);
    IniWriteNumber(file, profile, u"Width", placement.width / x);
    IniWriteNumber(file, profile, u"Height", placement.height / y);
    IniWriteNumber(file, profile, u"State", placement.state);
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
    placement.left = read(u"Left", now.left, window.TwipsPerPixelX());
    placement.top = read(u"Top", now.top, window.TwipsPerPixelY());
    placement.width = read(u"Width", now.width, window.TwipsPerPixelX());
    placement.height = read(u"Height", now.height, window.TwipsPerPixelY());
    placement.state = read(u"State", static_cast<int>(window.State()), 1);
    if (!window.IsFullScreen()) window.SetState(StateOf(placement.state));
    return placement;
}

void LeaveFullScreen(const WindowPlacement& placement, Window& window) {
    window.SetFullScreen(false);
    const WindowState state = StateOf(placement.state);
    window.SetState(state);
    if (state == WindowState::Normal) MoveToPlacement(placement, window);
}
