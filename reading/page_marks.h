// Bookmarks of an HTML page: where one may be defined, what it marks, and how the page goes there.
#pragma once

#include "platform/html_view.h"

#include <optional>
#include <string>
#include <vector>

struct PageMark {
    PageSpan span;
    std::u16string excerpt; // the marked text
};

// The functions are for a page that has a body.

// Not at the beginning of the book: the selection on the first line of a page not scrolled.
bool CanMarkPage(const HtmlView&);

// The selection, 80 characters of it at most or from its caret; those at the top of the view when
// the selection is scrolled out of sight. Nothing when the page does not answer.
std::optional<PageMark> MarkInPage(HtmlView&);

// What each bookmark tag ("start,length") marks, nothing for a tag that is not two numbers.
std::vector<PageSpan> MarkedSpans(const std::vector<std::u16string>& tags);

void GoToPageMark(HtmlView&, const PageSpan&); // selects it, at the top of the view
