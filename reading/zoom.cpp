#include "reading/zoom.h"

#include "common/keys.h"
#include "common/text.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace {
constexpr int maxZoomStep = 100; // far beyond what an engine zooms: a bound for edited records

// What a key with Ctrl multiplies into the step, as the view zooms: back, in, out.
std::optional<int> StepOfKey(int keyCode) {
    switch (keyCode) {
    case '0': return 0;
    case PlusKey: return 1;
    case MinusKey: return -1;
    default: return std::nullopt;
    }
}
} // namespace

int ZoomStep(const MenuItem& fontItem) {
    return WholeNumber(fontItem.tag);
}

int WithinZoomSteps(int step) {
    return std::clamp(step, -maxZoomStep, maxZoomStep);
}

void SetZoomStep(MenuItem& fontItem, int step) {
    fontItem.tag = NumberText(WithinZoomSteps(step));
}

void ZoomBy(HtmlPage& page, HtmlView& view, int steps) {
    for (int i = 0; i < std::abs(steps); ++i) {
        ++page.pendingZoomKeys;
        view.SendZoomKey(steps > 0);
    }
}

void SettleZoom(HtmlView& view, const MenuItem& fontItem) {
    // The answer to any question comes after all orders have been carried out.
    if (view.ZoomSteps() != ZoomStep(fontItem)) view.StartAtTop();
}

bool CountZoomKey(HtmlPage& page, MenuItem& fontItem, int keyCode, int shift) {
    const auto step = StepOfKey(keyCode);
    // Ctrl with Alt types a character on some keyboards.
    const bool zooms = (shift & (CtrlKey | AltKey)) == CtrlKey;
    if (!zooms || !step || !page.IsShown()) return false;
    if (page.pendingZoomKeys > 0) {
        --page.pendingZoomKeys;
        return false;
    }
    SetZoomStep(fontItem, *step + std::abs(*step) * ZoomStep(fontItem));
    return true;
}
