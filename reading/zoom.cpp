#include "reading/zoom.h"

#include "app/main_form.h"
#include "common/text.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace {
constexpr int farthestStep = 100; // far beyond what an engine zooms: a bound for edited records

// What a key with Ctrl multiplies into the step, as the view zooms: back, in, out.
std::optional<int> StepOfKey(int keyCode) {
    switch (keyCode) {
    case '0': return 0;
    case PlusKey: return 1;
    case MinusKey: return -1;
    default: return std::nullopt;
    }
}

void SendZoomKey(MainForm& form, bool larger) {
    ++form.page.pendingZoomKeys;
    form.ports.htmlView->SendZoomKey(larger);
}
} // namespace

int ZoomStep(const MainForm& form) {
    return WholeNumber(form.menu.mViewFont[0].tag);
}

void SetZoomStep(MainForm& form, int step) {
    form.menu.mViewFont[0].tag = NumberText(std::clamp(step, -farthestStep, farthestStep));
}

void ApplyZoomStep(MainForm& form) {
    const int step = ZoomStep(form);
    for (int i = 0; i < std::abs(step); ++i)
        SendZoomKey(form, step > 0);
}

void ZoomPage(MainForm& form, bool larger) {
    SetZoomStep(form, ZoomStep(form) + (larger ? 1 : -1));
    SendZoomKey(form, larger);
}

bool CountZoomKey(MainForm& form, int keyCode, int shift) {
    const auto step = StepOfKey(keyCode);
    // Ctrl with Alt types a character on some keyboards.
    const bool zooms = (shift & (CtrlKey | AltKey)) == CtrlKey;
    if (!zooms || !step || form.page.path.empty()) return false;
    if (form.page.pendingZoomKeys > 0) {
        --form.page.pendingZoomKeys;
        return false;
    }
    SetZoomStep(form, *step + std::abs(*step) * ZoomStep(form));
    return true;
}
