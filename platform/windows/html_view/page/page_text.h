// The text of a page in the engine's text ranges. Positions are counted as the engine moves a
// range's end: by its unit "character", from the start of the body.
#pragma once

#include "platform/html_view.h"
#include "platform/windows/html_view/page/page_document.h"

// A place in CSS pixels from the upper left of the view.
struct PagePlace {
    int left = 0, top = 0;
};

using PageRange = ComPtr<IHTMLTxtRange>; // null on failure; then its functions fail, too

PageRange Copy(const PageRange&);
PageRange RangeOf(const PageDocument&, const PageSpan&); // as far as the text goes
std::optional<TextPos> StartOf(const PageRange&);
std::optional<PageSpan> SpanOf(const PageRange&);
std::optional<std::u16string> TextOf(const PageRange&); // U+000A for every break
std::optional<std::u16string> HtmlOf(const PageRange&);
std::optional<PagePlace> PlaceOf(const PageRange&); // of its first line
std::optional<int> HeightOf(const PageRange&);      // CSS pixels, of all its lines
bool SelectRange(const PageRange&);
bool HasTextAfterStart(const PageRange&);

// The caret's place at a point of the view, in CSS pixels.
PageRange RangeAt(const PageDocument&, int left, int top);
bool IsInside(const PageRange& inner, const PageRange& outer);
bool IsSame(const PageRange&, const PageRange&);

// From the end of `behind` (null: the start of the text) to the end of the text.
PageRange RestAfter(const PageDocument&, const PageRange& behind);
// Makes `range` the first place of `what` in it.
bool FindIn(const PageRange& range, std::u16string_view what, FindOptions);
