#include "app/auto_scroll.h"

#include "app/main_form.h"
#include "app/run_command.h"
#include "app/shown_book.h"
#include "common/text.h"

#include <algorithm>
#include <utility>

namespace {
constexpr double twipsPerInch = 1440;

// Of the page, whose pixels are CSS pixels.
bool ScrollPageDown(MainForm& form, int pixels) {
    HtmlView& html = *form.ports.htmlView;
    if (!HasPageBody(form) || html.Percent() >= 100) return false;
    html.ScrollDown(pixels);
    return true;
}

void Scroll(MainForm& form, int pixels) {
    const bool moved =
        IsPageShown(form) ? ScrollPageDown(form, pixels) : form.ports.textView->ScrollDown(pixels);
    if (!moved) EndAutoScroll(form);
}

void Run(MainForm& form) {
    const double dpi = IsPageShown(form) ? 96 : twipsPerInch / form.ports.window->TwipsPerPixelY();
    const ScrollStep step = StepOf(form.autoScroll.speed, dpi);
    form.ports.scrollTimer->Start(step.interval, [&form, pixels = step.pixels] {
        RunCommand(form, [&form, pixels] { Scroll(form, pixels); });
    });
    form.autoScroll.running = true;
}

std::u16string SpeedText(int speed) {
    return u"Speed " + NumberText(speed + 1) + u" of " + NumberText(maxScrollSpeed + 1) + u'.';
}

void ChangeSpeed(MainForm& form, int by) {
    form.autoScroll.speed = std::clamp(form.autoScroll.speed + by, 0, maxScrollSpeed);
    Run(form);
    Announce(form, SpeedText(form.autoScroll.speed));
}
} // namespace

void StartAutoScroll(MainForm& form) {
    if (!IsBookShown(form)) return;
    Run(form);
    Announce(form, u"Scrolling by itself. Any key ends it.");
}

void EndAutoScroll(MainForm& form) {
    if (!std::exchange(form.autoScroll.running, false)) return;
    form.ports.scrollTimer->Stop();
    Announce(form, u"Scrolling has ended.");
}

bool SteerAutoScroll(MainForm& form, int keyCode, int shift) {
    if (!form.autoScroll.running) return false;
    switch (AutoScrollKeyOf(keyCode, shift)) {
    case AutoScrollKey::Nothing: return true;
    case AutoScrollKey::Faster: ChangeSpeed(form, 1); return true;
    case AutoScrollKey::Slower: ChangeSpeed(form, -1); return true;
    case AutoScrollKey::End: break;
    }
    EndAutoScroll(form);
    form.autoScroll.endedBy = keyCode;
    const bool itsOwn = keyCode == 'S' && shift == (CtrlKey | ShiftKey);
    return itsOwn || keyCode == EscapeKey;
}

void ReleaseAutoScrollKey(MainForm& form, int keyCode, int shift) {
    if (keyCode != 'S' || shift != (CtrlKey | ShiftKey)) return;
    if (std::exchange(form.autoScroll.endedBy, 0) != keyCode) StartAutoScroll(form);
}
