#include "shell/layout.h"

#include "app/main_form.h"
#include "common/text.h"

#include <algorithm>
#include <cmath>

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

// Counts one more while it lives, also where something throws.
class Nesting {
  public:
    explicit Nesting(int& count) : count_(count) { ++count_; }
    ~Nesting() { --count_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

  private:
    int& count_;
};

void RememberNormalRectangle(MainForm& form) {
    const Window& window = *form.ports.window;
    const Rect bounds = window.Bounds();
    WindowPlacement& placement = form.placement;
    placement.Left = Twips(bounds.left, window.TwipsPerPixelX());
    placement.Top = Twips(bounds.top, window.TwipsPerPixelY());
    placement.Width = Twips(bounds.width, window.TwipsPerPixelX());
    placement.Height = Twips(bounds.height, window.TwipsPerPixelY());
}
} // namespace

void MoveToPlacement(MainForm& form) {
    const WindowPlacement& placement = form.placement;
    const double x = form.ports.window->TwipsPerPixelX(), y = form.ports.window->TwipsPerPixelY();
    form.ports.window->Move({Pixels(placement.Left, x), Pixels(placement.Top, y),
                             Pixels(placement.Width, x), Pixels(placement.Height, y)});
}

void fwMain_Resize(MainForm& form) {
    if (form.resizeNesting > 0) return;
    const Nesting nesting(form.resizeNesting);
    const Window& window = *form.ports.window;
    const auto normal = static_cast<int>(WindowState::Normal);
    if (window.State() == WindowState::Normal && form.placement.State != normal)
        MoveToPlacement(form);
    form.placement.State = static_cast<int>(window.State());
    if (window.State() == WindowState::Normal) RememberNormalRectangle(form);
    LayOutForm(form);
}

void FitStatusBar(MainForm& form) {
    constexpr double twips = 18 * 15; // 18 pixels at 96 dpi
    const auto pixels = static_cast<int>(std::lround(twips / form.ports.window->TwipsPerPixelY()));
    if (form.ports.statusBar->Height() != pixels) form.ports.statusBar->SetHeight(pixels);
}

void LayOutForm(MainForm& form) {
    const Window& window = *form.ports.window;
    if (window.State() == WindowState::Minimized) return;
    FitStatusBar(form); // the window may have come to another screen
    const int width = window.InnerWidth(), innerHeight = window.InnerHeight();
    const int statusHeight = form.ports.statusBar->Height();
    const int height = std::max(innerHeight - statusHeight, 0);
    form.ports.statusBar->SetBounds({0, height, width, statusHeight});
    form.ports.window->SetPanelBounds({0, 0, width, height});
    // Two pixels of margin at the left and right, and four pixels shorter than the panel.
    constexpr int left = 2;
    form.ports.textView->SetBounds(
        {left, 0, std::max(width - left - 4, 0), std::max(height - 4, 0)});
    // The frame of the HTML view hides under the panel's edge.
    if (form.ports.htmlView) form.ports.htmlView->SetBounds({-2, -2, width, height});
}

void SaveWindowPlacement(MainForm& form) {
    const Window& window = *form.ports.window;
    if (window.State() == WindowState::Normal) RememberNormalRectangle(form);
    const WindowPlacement& placement = form.placement;
    const std::u16string& section = form.menu.mUser[0].tag;
    const double x = window.TwipsPerPixelX(), y = window.TwipsPerPixelY();
    IniBatch oneWrite(*form.dataFile);
    IniWriteNumber(*form.dataFile, section, u"Left", placement.Left / x);
    IniWriteNumber(*form.dataFile, section, u"Top", placement.Top / y);
    IniWriteNumber(*form.dataFile, section, u"Width", placement.Width / x);
    IniWriteNumber(*form.dataFile, section, u"Height", placement.Height / y);
    IniWriteNumber(*form.dataFile, section, u"State", placement.State);
    oneWrite.Commit();
}

WindowPlacement LoadWindowPlacement(MainForm& form) {
    Window& window = *form.ports.window;
    const Rect now = window.Bounds();
    const auto read = [&](const char16_t* key, int present, double perPixel) {
        constexpr double farthest = 32767; // pixels, what window systems can place
        const double pixels = IniReadNumber(*form.dataFile, form.menu.mUser[0].tag, key, present);
        return RoundToEven(std::clamp(pixels, -farthest, farthest) * perPixel);
    };
    WindowPlacement placement;
    placement.Left = read(u"Left", now.left, window.TwipsPerPixelX());
    placement.Top = read(u"Top", now.top, window.TwipsPerPixelY());
    placement.Width = read(u"Width", now.width, window.TwipsPerPixelX());
    placement.Height = read(u"Height", now.height, window.TwipsPerPixelY());
    const auto presentState = static_cast<int>(window.State());
    placement.State = read(u"State", presentState, 1);
    window.SetState(StateOf(placement.State));
    return placement;
}
