// Keys of a page.
#include "view/html/page_keys.h"
#include "view/html/page_pane.h"

bool PagePane::Press(PaneKey key, bool extend, bool control) {
    if (!UpdateLayout()) return false;
    if (key == PaneKey::Space) {
        if (control) return false;
        ScrollPage(!extend);
        return true;
    }
    if (extend) {
        const auto target = TargetOfKey(CurrentViewport(), caret_, key, control, LineHeight());
        if (!target) return false;
        Select(anchor_, *target);
        Reveal(*target);
        return true;
    }
    switch (key) {
    case PaneKey::Up: ScrollLines(-2); break;
    case PaneKey::Down: ScrollLines(2); break;
    case PaneKey::Left: ScrollBy({-2 * LineHeight(), 0}); break;
    case PaneKey::Right: ScrollBy({2 * LineHeight(), 0}); break;
    case PaneKey::PageUp: PageUp(); break;
    case PaneKey::PageDown: PageDown(); break;
    case PaneKey::Home: ScrollToPercent(0); break;
    case PaneKey::End: ScrollToPercent(100); break;
    case PaneKey::Space: break;
    }
    return true;
}

bool PagePane::FocusLink(bool forward) {
    if (!UpdateLayout()) return false;
    const auto start = links_.FocusNext(CurrentViewport(), forward);
    if (!start) return false;
    Reveal(*start);
    window_.Redraw();
    window_.OnObjectFocused();
    return true;
}

bool PagePane::FollowFocusedLink() {
    if (links_.Focused() == noHtmlNode || !onLink) return false;
    onLink(links_.Focused());
    return true;
}

void PagePane::FollowObject(std::size_t index) {
    const ReadingObjects& objects = Objects();
    if (index >= objects.size() || objects[index].kind != ReadingObjectKind::Link) return;
    if (onLink) onLink(objects[index].node);
}

std::size_t PagePane::FocusedObject() {
    return links_.FocusedIn(Objects());
}
