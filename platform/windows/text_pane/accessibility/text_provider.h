// A text window as an element of UI Automation, with the text pattern.
#pragma once

#include "platform/windows/base/com_object.h"
#include "platform/windows/text_pane/accessibility/uia_text_pattern.h"
#include "view/readable_pane.h"

// UI Automation hands all calls over to the thread of the window.
// What a page has besides characters are elements within it: see ObjectProvider.
class TextProvider
    : public ComObject<IRawElementProviderSimple, ITextProvider2, IRawElementProviderFragment,
                       IRawElementProviderFragmentRoot> {
  public:
    TextProvider(HWND window, ReadablePane& pane)
        : window_(window), pane_(&pane), hasStructure_(pane.HasStructure()) {}

    // The window goes: from now on every call answers that there is no element.
    void LeavePane() { pane_ = nullptr; }
    HWND Window() const { return window_; }
    ReadablePane* Pane() const { return pane_; }

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

    HRESULT STDMETHODCALLTYPE Navigate(NavigateDirection direction,
                                       IRawElementProviderFragment** found) noexcept override;
    // Those that the host has for the window.
    HRESULT STDMETHODCALLTYPE GetRuntimeId(SAFEARRAY** id) noexcept override;
    HRESULT STDMETHODCALLTYPE get_BoundingRectangle(UiaRect* box) noexcept override;
    HRESULT STDMETHODCALLTYPE GetEmbeddedFragmentRoots(SAFEARRAY** roots) noexcept override;
    HRESULT STDMETHODCALLTYPE SetFocus() noexcept override;
    HRESULT STDMETHODCALLTYPE
    get_FragmentRoot(IRawElementProviderFragmentRoot** root) noexcept override;
    HRESULT STDMETHODCALLTYPE ElementProviderFromPoint(
        double x, double y, IRawElementProviderFragment** found) noexcept override;
    HRESULT STDMETHODCALLTYPE GetFocus(IRawElementProviderFragment** found) noexcept override;

  private:
    HRESULT GiveRange(TextSpan span, ITextRangeProvider** range);

    HWND window_;
    ReadablePane* pane_;
    const bool hasStructure_;
};
