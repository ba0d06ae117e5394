#include "platform/windows/text_pane/accessibility/text_range.h"

#include "platform/windows/base/text.h"
#include "platform/windows/text_pane/accessibility/attribute_values.h"
#include "platform/windows/text_pane/accessibility/guarded_answer.h"
#include "platform/windows/text_pane/accessibility/object_provider.h"
#include "platform/windows/text_pane/accessibility/text_search.h"

#include <algorithm>

namespace {
constexpr TextPos maxAnswer = 256 * 1024; // UTF-16 units

// Left, top, width and height of each, on the screen.
SAFEARRAY* ArrayOf(const std::vector<Rect>& boxes, HWND window) {
    SAFEARRAY* numbers = SafeArrayCreateVector(VT_R8, 0, static_cast<ULONG>(4 * boxes.size()));
    void* data = nullptr;
    if (!numbers || FAILED(SafeArrayAccessData(numbers, &data))) return numbers;
    auto* number = static_cast<double*>(data);
    for (const Rect& box : boxes) {
        POINT corner = {box.left, box.top};
        ClientToScreen(window, &corner);
        *number++ = corner.x;
        *number++ = corner.y;
        *number++ = box.width;
        *number++ = box.height;
    }
    SafeArrayUnaccessData(numbers);
    return numbers;
}
} // namespace

HRESULT TextRange::FindText(BSTR text, BOOL backward, BOOL ignoreCase,
                            ITextRangeProvider** range) noexcept {
    return GiveAnswer(provider_->Pane(), range, [&](ReadablePane& pane) {
        const std::u16string what = FromWide({text ? text : L"", SysStringLen(text)});
        const FindOptions options{.matchCase = !ignoreCase};
        const auto found = FindIn(pane.Source(), In(pane), what, options, backward != FALSE);
        if (found) *range = new TextRange(*provider_.Get(), *found);
        return S_OK;
    });
}

HRESULT TextRange::FindAttribute(TEXTATTRIBUTEID id, VARIANT value, BOOL backward,
                                 ITextRangeProvider** range) noexcept {
    return GiveAnswer(provider_->Pane(), range, [&](ReadablePane& pane) {
        const auto found = FindAttributeIn(pane, In(pane), id, value, backward != FALSE);
        if (found) *range = new TextRange(*provider_.Get(), *found);
        return S_OK;
    });
}

HRESULT TextRange::GetAttributeValue(TEXTATTRIBUTEID id, VARIANT* value) noexcept {
    if (!value) return E_INVALIDARG;
    VariantInit(value);
    return AnswerOf(provider_->Pane(),
                    [&](ReadablePane& pane) { return GiveAttribute(pane, In(pane), id, value); });
}

HRESULT TextRange::GetText(int maxLength, BSTR* text) noexcept {
    if (maxLength < -1) return E_INVALIDARG;
    return GiveAnswer(provider_->Pane(), text, [&](ReadablePane& pane) {
        const TextPos limit = maxLength < 0 ? maxAnswer : std::min(maxLength, maxAnswer);
        const std::wstring units = ToWide(ReadableText(pane, In(pane), limit));
        *text = SysAllocStringLen(units.data(), static_cast<UINT>(units.size()));
        return *text ? S_OK : E_OUTOFMEMORY;
    });
}

HRESULT TextRange::GetBoundingRectangles(SAFEARRAY** boxes) noexcept {
    return GiveAnswer(provider_->Pane(), boxes, [&](ReadablePane& pane) {
        *boxes = ArrayOf(pane.VisibleBoxes(In(pane)), provider_->Window());
        return *boxes ? S_OK : E_OUTOFMEMORY;
    });
}

HRESULT TextRange::GetEnclosingElement(IRawElementProviderSimple** element) noexcept {
    return GiveAnswer(provider_->Pane(), element, [&](ReadablePane& pane) {
        const std::size_t around = InnermostAround(pane.Objects(), In(pane));
        if (around != noReadingObject) {
            *element = new ObjectProvider(*provider_.Get(), pane, around);
        } else {
            *element = provider_.Get();
            (*element)->AddRef();
        }
        return S_OK;
    });
}

HRESULT TextRange::GetChildren(SAFEARRAY** children) noexcept {
    return GiveAnswer(provider_->Pane(), children, [&](ReadablePane& pane) {
        const auto within = OutermostWithin(pane.Objects(), In(pane));
        *children = SafeArrayCreateVector(VT_UNKNOWN, 0, static_cast<ULONG>(within.size()));
        if (!*children) return E_OUTOFMEMORY;
        for (std::size_t i = 0; i < within.size(); ++i) {
            const auto object = Adopt(new ObjectProvider(*provider_.Get(), pane, within[i]));
            auto at = static_cast<LONG>(i);
            SafeArrayPutElement(*children, &at,
                                static_cast<IRawElementProviderSimple*>(object.Get()));
        }
        return S_OK;
    });
}

HRESULT TextRange::Select() noexcept {
    return AnswerOf(provider_->Pane(), [&](ReadablePane& pane) {
        const TextSpan span = In(pane);
        pane.Select(span.start, span.end);
        pane.Reveal(span.end);
        return S_OK;
    });
}

// There is one selection, which a range cannot be added to nor taken from.
HRESULT TextRange::AddToSelection() noexcept {
    return AnswerOf(provider_->Pane(), [](ReadablePane&) { return uia::invalidOperation; });
}

HRESULT TextRange::RemoveFromSelection() noexcept {
    return AnswerOf(provider_->Pane(), [](ReadablePane&) { return uia::invalidOperation; });
}

HRESULT TextRange::ScrollIntoView(BOOL alignToTop) noexcept {
    return AnswerOf(provider_->Pane(), [&](ReadablePane& pane) {
        const TextSpan span = In(pane);
        if (alignToTop) {
            pane.ScrollLineToTop(span.start);
        } else {
            pane.Reveal(span.start);
            pane.Reveal(span.end);
        }
        return S_OK;
    });
}
