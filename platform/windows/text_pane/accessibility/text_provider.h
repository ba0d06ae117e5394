// A text window as an element of UI Automation, with the text pattern.
#pragma once

#include "platform/windows/base/com_object.h"
#include "platform/windows/text_pane/accessibility/uia_text_pattern.h"
#include "view/text_pane.h"

// UI Automation hands all calls over to the thread of the window.
class TextProvider : public ComObject<IRawElementProviderSimple, ITextProvider2> {
  public:
    TextProvider(HWND window, TextPane& pane) : window_(window), pane_(&pane) {}

    // The window goes: from now on every call answers that there is no element.
    void LeavePane() { pane_ = nullptr; }
    HWND Window() const { return window_; }
    TextPane* Pane() const { return pane_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) noexcept override;

    HRESULT STDMETHODCALLTYPE get_ProviderOptions(ProviderOptions* options) noexcept override;
    HRESULT STDMETHODCALLTYPE GetPatternProvider(PATTERNID id, IUnknown** found) noexcept override;
    HRESULT STDMETHODCALLTYPE GetPropertyValue(PROPERTYID id, VARIANT* value) noexcept override;
    HRESULT STDMETHODCALLTYPE
    get_HostRawElementProvider(IRawElementProviderSimple** host) noexcept override;

    // Of the selection; where nothing is selected, an empty range at the caret.
    HRESULT STDMETHODCALLTYPE GetSelection(SAFEARRAY** ranges) noexcept override;
    HRESULT STDMETHODCALLTYPE GetVisibleRanges(SAFEARRAY** ranges) noexcept override;
    HRESULT STDMETHODCALLTYPE RangeFromChild(IRawElementProviderSimple* child,
                                             ITextRangeProvider** range) noexcept override;
    HRESULT STDMETHODCALLTYPE RangeFromPoint(UiaPoint point,
                                             ITextRangeProvider** range) noexcept override;
    HRESULT STDMETHODCALLTYPE get_DocumentRange(ITextRangeProvider** range) noexcept override;
    HRESULT STDMETHODCALLTYPE
    get_SupportedTextSelection(SupportedTextSelection* selection) noexcept override;
    HRESULT STDMETHODCALLTYPE RangeFromAnnotation(IRawElementProviderSimple* annotation,
                                                  ITextRangeProvider** range) noexcept override;
    HRESULT STDMETHODCALLTYPE GetCaretRange(BOOL* active,
                                            ITextRangeProvider** range) noexcept override;

  private:
    HRESULT GiveRange(TextSpan span, ITextRangeProvider** range);

    HWND window_;
    TextPane* pane_;
};
