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
    const bool wasNormal = placement.State == static_cast<int>(WindowState::Normal);
    if (window.State() == WindowState::Normal && !wasNormal) MoveToPlacement(placement, window);
    placement.State = static_cast<int>(window.State());
    if (window.State() == WindowState::Normal) RememberNormalRectangle(placement, window);
}

void SaveWindowPlacement(WindowPlacement& placement, IniFile& file, const std::u16string& profile,
                         const Window& window) {
    if (window.State() == WindowState::Normal) RememberNormalRectangle(placement, window);
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
    window.SetState(StateOf(placement.State));
    return placement;
}
