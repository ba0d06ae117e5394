// A loaded document, through MSHTML's object model (in-process, synchronous).
#pragma once

#include "common/geometry.h"
#include "platform/windows/base/com_ptr.h"

#include <mshtml.h>

#include <cstdint>
#include <optional>
#include <string>

// Functions return none (or null) when the engine fails, also on an empty document.
class PageDocument {
  public:
    PageDocument() = default; // none
    explicit PageDocument(IDispatch* document);
    explicit operator bool() const { return static_cast<bool>(document_); }

    bool HasBody() const; // frame sets have none
    std::optional<std::wstring> Charset() const;
    std::optional<std::wstring> Title() const;
    std::optional<int> ScrollLeft() const; // CSS pixels, as all that follow
    std::optional<int> ScrollTop() const;
    std::optional<int> ViewHeight() const;
    std::optional<int> MaxScrollTop() const;
    std::optional<int> TopMargin() const;
    ComPtr<IHTMLElementCollection> Elements(const wchar_t* name) const; // in the page's order

    bool ScrollTo(int left, int top);
    bool SetBackColor(Color);
    bool SetTextColor(std::optional<Color>); // none: the page's own
    // As they are computed; null without one, and before version 9.
    ComPtr<IHTMLCSSStyleDeclaration> BodyStyle() const;
    ComPtr<IHTMLCSSStyleDeclaration> RootStyle() const;

    ComPtr<IHTMLTxtRange> WholeText() const;
    ComPtr<IHTMLTxtRange> SelectedText() const; // null when the selection is not text

  private:
    ComPtr<IHTMLCSSStyleDeclaration> ComputedStyleOf(const ComPtr<IDispatch>& element) const;

    ComPtr<IHTMLDocument2> document_;
    ComPtr<IDispatch> body_;
    std::wstring originalTextColor_; // of the body's style attribute
    ComPtr<IHTMLElement2> scroller_; // the element that the page scrolls by
};
