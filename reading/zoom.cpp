#include "reading/zoom.h"

#include "app/main_form.h"
#include "books/history_list.h"
#include "books/save_state.h"
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

void SendZoomKey(MainForm& form, bool larger) {
    ++form.page.pendingZoomKeys;
    form.ports.htmlView->SendZoomKey(larger);
}
} // namespace

int ZoomStep(const MainForm& form) {
    return WholeNumber(form.menu.mViewFont[0].tag);
}

int WithinZoomSteps(int step) {
    return std::clamp(step, -maxZoomStep, maxZoomStep);
}

void SetZoomStep(MainForm& form, int step) {
    form.menu.mViewFont[0].tag = NumberText(WithinZoomSteps(step));
}

void ZoomBy(MainForm& form, int steps) {
    for (int i = 0; i < std::abs(steps); ++i)
        SendZoomKey(form, steps > 0);
}

void ZoomPage(MainForm& form, bool larger) {
    SetZoomStep(form, ZoomStep(form) + (larger ? 1 : -1));
    SendZoomKey(form, larger);
}

bool SettleZoom(MainForm& form) {
    const bool underWay = HasPageBody(form) && form.ports.htmlView->ZoomSteps() != ZoomStep(form);
    if (underWay) form.ports.htmlView->StartAtTop(); // any question comes behind all orders
    return !form.closed;
}

void wbMain_Zoomed(MainForm& form) {
    if (!IsShownBookListed(form) || !HasPageBody(form)) return;
    const BookRecord record = BookRecord::Parse(form.menu.mFileList[0].tag);
    // A page that was brought to its place has the size of its record.
    if (record.Number(Field::FontSize) != form.ports.htmlView->ZoomSteps()) SaveBookState(form, 0);
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
