// A text window as the root of the elements within its text.
#include "platform/windows/text_pane/accessibility/guarded_answer.h"
#include "platform/windows/text_pane/accessibility/object_provider.h"

HRESULT TextProvider::Navigate(NavigateDirection direction,
                               IRawElementProviderFragment** found) noexcept {
    return GiveAnswer(Pane(), found, [&](ReadablePane& pane) {
        const auto children = ReadingChildren(pane.Objects());
        if (children.empty()) return S_OK;
        if (direction == NavigateDirection_FirstChild)
            *found = new ObjectProvider(*this, pane, children.front());
        if (direction == NavigateDirection_LastChild)
            *found = new ObjectProvider(*this, pane, children.back());
        return S_OK;
    });
}

HRESULT TextProvider::GetRuntimeId(SAFEARRAY** id) noexcept {
    return GiveAnswer(Pane(), id, [](ReadablePane&) { return S_OK; });
}

HRESULT TextProvider::get_BoundingRectangle(UiaRect* box) noexcept {
    return GiveAnswer(Pane(), box, [&](ReadablePane&) {
        RECT window = {};
        GetWindowRect(window_, &window);
        *box = {double(window.left), double(window.top), double(window.right - window.left),
                double(window.bottom - window.top)};
        return S_OK;
    });
}

HRESULT TextProvider::GetEmbeddedFragmentRoots(SAFEARRAY** roots) noexcept {
    return GiveAnswer(Pane(), roots, [](ReadablePane&) { return S_OK; });
}

HRESULT TextProvider::SetFocus() noexcept {
    return AnswerOf(Pane(), [&](ReadablePane&) {
        ::SetFocus(window_);
        return S_OK;
    });
}

HRESULT TextProvider::get_FragmentRoot(IRawElementProviderFragmentRoot** root) noexcept {
    return GiveAnswer(Pane(), root, [&](ReadablePane&) {
        *root = this;
        AddRef();
        return S_OK;
    });
}

// The innermost one.
HRESULT TextProvider::ElementProviderFromPoint(double x, double y,
                                               IRawElementProviderFragment** found) noexcept {
    return GiveAnswer(Pane(), found, [&](ReadablePane& pane) {
        POINT corner = {0, 0};
        ClientToScreen(window_, &corner);
        const Rect point{int(x) - corner.x, int(y) - corner.y, 1, 1};
        const ReadingObjects& objects = pane.Objects();
        std::size_t at = noReadingObject;
        const TextSpan visible = pane.VisibleText();
        for (std::size_t i = 0; i < objects.size() && objects[i].span.start <= visible.end; ++i)
            if (objects[i].span.end >= visible.start && Intersect(pane.ObjectRect(i), point))
                at = i;
        if (at != noReadingObject) *found = new ObjectProvider(*this, pane, at);
        return S_OK;
    });
}

HRESULT TextProvider::GetFocus(IRawElementProviderFragment** found) noexcept {
    return GiveAnswer(Pane(), found, [&](ReadablePane& pane) {
        const std::size_t focused = pane.FocusedObject();
        if (focused != noReadingObject) *found = new ObjectProvider(*this, pane, focused);
        return S_OK;
    });
}
