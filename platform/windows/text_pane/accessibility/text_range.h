// A stretch of the text of a window, for UI Automation.
#pragma once

#include "platform/windows/text_pane/accessibility/text_provider.h"
#include "view/reading_units.h"

// Its places stay as numbers when another text is shown, and are moved into that.
class TextRange : public ComObject<ITextRangeProvider> {
  public:
    TextRange(TextProvider& provider, TextSpan span);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) noexcept override;

    HRESULT STDMETHODCALLTYPE Clone(ITextRangeProvider** clone) noexcept override;
    HRESULT STDMETHODCALLTYPE Compare(ITextRangeProvider* range, BOOL* same) noexcept override;
    HRESULT STDMETHODCALLTYPE CompareEndpoints(TextPatternRangeEndpoint endpoint,
                                               ITextRangeProvider* range,
                                               TextPatternRangeEndpoint itsEndpoint,
                                               int* difference) noexcept override;

    HRESULT STDMETHODCALLTYPE ExpandToEnclosingUnit(TextUnit unit) noexcept override;
    HRESULT STDMETHODCALLTYPE Move(TextUnit unit, int count, int* moved) noexcept override;
    HRESULT STDMETHODCALLTYPE MoveEndpointByUnit(TextPatternRangeEndpoint endpoint, TextUnit unit,
                                                 int count, int* moved) noexcept override;
    HRESULT STDMETHODCALLTYPE
    MoveEndpointByRange(TextPatternRangeEndpoint endpoint, ITextRangeProvider* range,
                        TextPatternRangeEndpoint itsEndpoint) noexcept override;

    HRESULT STDMETHODCALLTYPE FindAttribute(TEXTATTRIBUTEID id, VARIANT value, BOOL backward,
                                            ITextRangeProvider** range) noexcept override;
    // Looks through the first or the last 16 M units of the range.
    HRESULT STDMETHODCALLTYPE FindText(BSTR text, BOOL backward, BOOL ignoreCase,
                                       ITextRangeProvider** range) noexcept override;
    HRESULT STDMETHODCALLTYPE GetAttributeValue(TEXTATTRIBUTEID id,
                                                VARIANT* value) noexcept override;
    // At most 256 K units; a pair of surrogates stays whole.
    HRESULT STDMETHODCALLTYPE GetText(int maxLength, BSTR* text) noexcept override;
    HRESULT STDMETHODCALLTYPE GetBoundingRectangles(SAFEARRAY** boxes) noexcept override;
    HRESULT STDMETHODCALLTYPE
    GetEnclosingElement(IRawElementProviderSimple** element) noexcept override;
    HRESULT STDMETHODCALLTYPE GetChildren(SAFEARRAY** children) noexcept override;

    HRESULT STDMETHODCALLTYPE Select() noexcept override;
    HRESULT STDMETHODCALLTYPE AddToSelection() noexcept override;
    HRESULT STDMETHODCALLTYPE RemoveFromSelection() noexcept override;
    HRESULT STDMETHODCALLTYPE ScrollIntoView(BOOL alignToTop) noexcept override;

  private:
    TextSpan In(const ReadablePane& pane) const;
    // Null for a range that is not one of this window's.
    const TextRange* OursOf(ITextRangeProvider* range) const;
    void SetEndpoint(TextPatternRangeEndpoint endpoint, TextPos position);

    ComPtr<TextProvider> provider_;
    TextSpan span_;
};
