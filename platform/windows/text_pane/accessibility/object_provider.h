// What a text has besides its characters as an element of UI Automation: a heading, a link, a
// picture.
#pragma once

#include "platform/windows/text_pane/accessibility/text_provider.h"

#include <optional>

// Of one version of the text's objects; when that is over every call answers that there is no
// element.
class ObjectProvider
    : public ComObject<IRawElementProviderSimple, IRawElementProviderFragment, IInvokeProvider> {
  public:
    ObjectProvider(TextProvider& root, ReadablePane& pane, std::size_t index);

    // Null for what is not one of ours.
    static ComPtr<ObjectProvider> From(IUnknown* element);
    std::optional<TextSpan> SpanIn(const TextProvider& root) const; // if it is of that one

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) noexcept override;

    HRESULT STDMETHODCALLTYPE get_ProviderOptions(ProviderOptions* options) noexcept override;
    HRESULT STDMETHODCALLTYPE GetPatternProvider(PATTERNID id, IUnknown** found) noexcept override;
    HRESULT STDMETHODCALLTYPE GetPropertyValue(PROPERTYID id, VARIANT* value) noexcept override;
    HRESULT STDMETHODCALLTYPE
    get_HostRawElementProvider(IRawElementProviderSimple** host) noexcept override;

    HRESULT STDMETHODCALLTYPE Navigate(NavigateDirection direction,
                                       IRawElementProviderFragment** found) noexcept override;
    HRESULT STDMETHODCALLTYPE GetRuntimeId(SAFEARRAY** id) noexcept override;
    HRESULT STDMETHODCALLTYPE get_BoundingRectangle(UiaRect* box) noexcept override;
    HRESULT STDMETHODCALLTYPE GetEmbeddedFragmentRoots(SAFEARRAY** roots) noexcept override;
    HRESULT STDMETHODCALLTYPE SetFocus() noexcept override;
    HRESULT STDMETHODCALLTYPE
    get_FragmentRoot(IRawElementProviderFragmentRoot** root) noexcept override;

    HRESULT STDMETHODCALLTYPE Invoke() noexcept override; // follows a link

  private:
    template <typename Answer>
    HRESULT AnswerHere(Answer answer) const noexcept;
    bool IsCurrent(const ReadablePane& pane) const { return pane.ObjectsVersion() == version_; }
    void GiveValue(ReadablePane& pane, PROPERTYID id, VARIANT* value) const;

    ComPtr<TextProvider> root_;
    const std::size_t index_; // in ReadablePane::Objects
    const int version_;
    const bool isLink_;
};
