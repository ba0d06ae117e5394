// Bookmarks of an HTML page: where one may be defined, what it marks, and how the page goes there.
#pragma once

#include "platform/html_view.h"

#include <optional>
#include <string>
#include <vector>

struct MainForm;

struct PageMark {
    PageSpan span;
    std::u16string excerpt; // the marked text
};

// Not at the beginning of the book: the selection on the first line of a page not scrolled.
bool CanMarkPage(const MainForm&);

// The selection, 80 characters of it at most or from its caret; those at the top of the view when
// the selection is scrolled out of sight. Nothing when the page does not answer.
std::optional<PageMark> MarkInPage(MainForm&);

// The text of each bookmark tag ("start,length"), "" for a tag that is not two numbers; an empty
// list when the page does not answer.
std::vector<std::u16string> PageExcerpts(MainForm&, const std::vector<std::u16string>& tags);

void GoToPageMark(MainForm&, const PageSpan&); // selects it, at the top of the view
