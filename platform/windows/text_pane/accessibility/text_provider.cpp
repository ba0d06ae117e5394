#include "platform/windows/text_pane/accessibility/text_provider.h"

#include "platform/windows/base/com_values.h"
#include "platform/windows/text_pane/accessibility/guarded_answer.h"
#include "platform/windows/text_pane/accessibility/object_provider.h"
#include "platform/windows/text_pane/accessibility/text_range.h"
#include "platform/windows/text_pane/accessibility/uia_library.h"

#include <cmath>

namespace {
SAFEARRAY* ArrayOf(TextRange* range) { // takes over the reference
    const ComPtr<TextRange> owner = Adopt(range);
    SAFEARRAY* ranges = SafeArrayCreateVector(VT_UNKNOWN, 0, 1);
    LONG first = 0;
    if (ranges) SafeArrayPutElement(ranges, &first, static_cast<ITextRangeProvider*>(range));
    return ranges;
}

void SetTruth(VARIANT* value, bool truth) {
    V_VT(value) = VT_BOOL;
    V_BOOL(value) = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

void SetWindowText(VARIANT* value, HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    V_VT(value) = VT_BSTR;
    V_BSTR(value) = SysAllocStringLen(text.data(), static_cast<UINT>(length));
}
} // namespace

HRESULT TextProvider::QueryInterface(REFIID id, void** found) noexcept {
    if (!hasStructure_)
        return FindInterface<IRawElementProviderSimple, ITextProvider, ITextProvider2>(this, id,
                                                                                       found);
    return FindInterface<IRawElementProviderSimple, ITextProvider, ITextProvider2,
                         IRawElementProviderFragment, IRawElementProviderFragmentRoot>(this, id,
                                                                                       found);
}

HRESULT TextProvider::get_ProviderOptions(ProviderOptions* options) noexcept {
    if (!options) return E_INVALIDARG;
    *options = static_cast<ProviderOptions>(ProviderOptions_ServerSideProvider |
                                            ProviderOptions_UseComThreading);
    return S_OK;
}

HRESULT TextProvider::GetPatternProvider(PATTERNID id, IUnknown** found) noexcept {
    return GiveAnswer(Pane(), found, [&](ReadablePane&) {
        if (id != uia::textPattern && id != uia::textPattern2) return S_OK;
        *found = static_cast<ITextProvider2*>(this);
        AddRef();
        return S_OK;
    });
}

HRESULT TextProvider::GetPropertyValue(PROPERTYID id, VARIANT* value) noexcept {
    if (!value) return E_INVALIDARG;
    VariantInit(value); // empty: the host tells it
    return AnswerOf(Pane(), [&](ReadablePane&) {
        switch (id) {
        case uia::controlType:
            V_VT(value) = VT_I4;
            V_I4(value) = uia::document;
            break;
        case uia::name: SetWindowText(value, window_); break;
        case uia::isKeyboardFocusable:
        case uia::valueIsReadOnly: SetTruth(value, true); break;
        case uia::hasKeyboardFocus: SetTruth(value, ::GetFocus() == window_); break;
        default: break;
        }
        return S_OK;
    });
}

HRESULT TextProvider::get_HostRawElementProvider(IRawElementProviderSimple** host) noexcept {
    return GiveAnswer(Pane(), host, [&](ReadablePane&) {
        const UiaLibrary& library = UiaLibrary::Get();
        return library.HostProvider ? library.HostProvider(window_, host) : S_OK;
    });
}

HRESULT TextProvider::GiveRange(TextSpan span, ITextRangeProvider** range) {
    *range = new TextRange(*this, span);
    return S_OK;
}

HRESULT TextProvider::GetSelection(SAFEARRAY** ranges) noexcept {
    return GiveAnswer(Pane(), ranges, [&](ReadablePane& pane) {
        *ranges = ArrayOf(new TextRange(*this, {pane.SelStart(), pane.SelEnd()}));
        return *ranges ? S_OK : E_OUTOFMEMORY;
    });
}

HRESULT TextProvider::GetVisibleRanges(SAFEARRAY** ranges) noexcept {
    return GiveAnswer(Pane(), ranges, [&](ReadablePane& pane) {
        *ranges = ArrayOf(new TextRange(*this, pane.VisibleText()));
        return *ranges ? S_OK : E_OUTOFMEMORY;
    });
}

HRESULT TextProvider::RangeFromChild(IRawElementProviderSimple* child,
                                     ITextRangeProvider** range) noexcept {
    return GiveAnswer(Pane(), range, [&](ReadablePane&) {
        const ComPtr<ObjectProvider> object = ObjectProvider::From(child);
        const auto span = object ? object->SpanIn(*this) : std::nullopt;
        return span ? GiveRange(*span, range) : E_INVALIDARG;
    });
}

// There are no notes on a text.

HRESULT TextProvider::RangeFromAnnotation(IRawElementProviderSimple*,
                                          ITextRangeProvider** range) noexcept {
    return GiveAnswer(Pane(), range, [](ReadablePane&) { return E_INVALIDARG; });
}

HRESULT TextProvider::RangeFromPoint(UiaPoint point, ITextRangeProvider** range) noexcept {
    return GiveAnswer(Pane(), range, [&](ReadablePane& pane) {
        POINT inside = {std::lround(point.x), std::lround(point.y)};
        ScreenToClient(window_, &inside);
        const TextPos at =
            pane.CharacterAtPoint({static_cast<int>(inside.x), static_cast<int>(inside.y)});
        return GiveRange({at, at}, range);
    });
}

HRESULT TextProvider::get_DocumentRange(ITextRangeProvider** range) noexcept {
    return GiveAnswer(Pane(), range, [&](ReadablePane& pane) {
        return GiveRange({0, pane.Source().Length()}, range);
    });
}

HRESULT TextProvider::get_SupportedTextSelection(SupportedTextSelection* selection) noexcept {
    return GiveAnswer(Pane(), selection, [&](ReadablePane&) {
        *selection = SupportedTextSelection_Single;
        return S_OK;
    });
}

HRESULT TextProvider::GetCaretRange(BOOL* active, ITextRangeProvider** range) noexcept {
    if (!active) return E_INVALIDARG;
    *active = FALSE;
    return GiveAnswer(Pane(), range, [&](ReadablePane& pane) {
        *active = ::GetFocus() == window_;
        return GiveRange({pane.Caret(), pane.Caret()}, range);
    });
}
