#include "shell/layout.h"

#include <algorithm>
#include <cmath>

void FitStatusBar(StatusBar& statusBar, const Window& window) {
    constexpr double twips = 18 * 15; // 18 pixels at 96 dpi
    const auto pixels = static_cast<int>(std::lround(twips / window.TwipsPerPixelY()));
    if (statusBar.Height() != pixels) statusBar.SetHeight(pixels);
}

void LayOutWindow(Window& window, StatusBar& statusBar, TextView& textView, HtmlView* htmlView) {
    if (window.State() == WindowState::Minimized) return;
    FitStatusBar(statusBar, window); // the window may have come to another screen
    const int width = window.InnerWidth(), statusHeight = statusBar.Height();
    const int beside =
        window.IsFullScreen() ? 0 : statusHeight; // full screen is for the book alone
    const int height = std::max(window.InnerHeight() - beside, 0);
    statusBar.SetBounds({0, height, width, statusHeight}); // else below the lower edge
    window.SetPanelBounds({0, 0, width, height});
    // Two pixels of margin at the left and right, and four pixels shorter than the panel.
    constexpr int left = 2;
    textView.SetBounds({left, 0, std::max(width - left - 4, 0), std::max(height - 4, 0)});
    // The frame of the HTML view hides under the panel's edge.
    if (htmlView) htmlView->SetBounds({-2, -2, width, height});
}
