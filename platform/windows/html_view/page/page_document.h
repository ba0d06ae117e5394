// A loaded document through the engine's object model, which lives in this process: its functions
// answer at once.
#pragma once

#include "platform/windows/base/com_ptr.h"

#include <mshtml.h>

#include <cstdint>
#include <optional>
#include <string>

// All questions answer nothing (or null) when the engine fails them, also on an empty document.
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
    std::optional<int> TopMargin() const;

    bool ScrollTo(int left, int top);
    bool SetBackColor(std::uint32_t redGreenBlue);                // 0x00RRGGBB
    bool SetTextColor(std::optional<std::uint32_t> redGreenBlue); // nothing: the page's own
    // The style of the body or of the root element as it came about; null without one.
    ComPtr<IHTMLCSSStyleDeclaration> ComputedStyle(bool ofBody) const;

    ComPtr<IHTMLTxtRange> WholeText() const;
    ComPtr<IHTMLTxtRange> SelectedText() const; // null when what is selected is no text

  private:
    ComPtr<IHTMLDocument2> document_;
    ComPtr<IDispatch> body_;
    std::wstring originalTextColor_; // the body's colour in its style attribute
    ComPtr<IHTMLElement2> scroller_; // the element that the page scrolls by
};
