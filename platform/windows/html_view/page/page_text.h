// The text of a page, by IHTMLTxtRange. Positions count the unit "character" from the start of the
// body.
#pragma once

#include "platform/html_view.h"
#include "platform/windows/html_view/page/page_document.h"

// CSS pixels from the top left of the view.
struct TextPoint {
    int left = 0, top = 0;
};

using PageRange = ComPtr<IHTMLTxtRange>; // null on failure; functions given null fail

PageRange Copy(const PageRange&);
PageRange RangeOf(const PageDocument&, const PageSpan&); // clipped to the text
std::optional<TextPos> StartOf(const PageRange&);
std::optional<PageSpan> SpanOf(const PageRange&);
std::optional<std::u16string> TextOf(const PageRange&); // U+000A for every break
std::optional<std::u16string> HtmlOf(const PageRange&);
std::optional<TextPoint> PlaceOf(const PageRange&); // of its first line
std::optional<int> HeightOf(const PageRange&);      // CSS pixels, of all its lines
bool SelectRange(const PageRange&);
bool HasTextAfterStart(const PageRange&);

// The caret position at a point of the view, in CSS pixels.
PageRange RangeAt(const PageDocument&, int left, int top);
// That of the first line of which a quarter or more is below `top`.
PageRange LineAt(const PageDocument&, int top);
bool IsInside(const PageRange& inner, const PageRange& outer);
bool IsSame(const PageRange&, const PageRange&);

// From the end of `after` (null: the start of the text) to the end of the text.
PageRange RestAfter(const PageDocument&, const PageRange& after);
// Moves `range` to the first match in it.
bool FindIn(const PageRange& range, std::u16string_view what, FindOptions);
