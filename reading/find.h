// Searches: what was searched for last, and the searches remembered for the shown book.
#pragma once

#include "platform/html_view.h"
#include "platform/text_view.h"

#include <string>
#include <string_view>
#include <vector>

struct FindState {
    std::u16string text; // the last one searched for, "" for none yet
    FindOptions options;
    std::vector<std::u16string> history; // of the shown book, newest first
};

void RememberSearch(FindState&); // the present text comes to the front of the history

// A history as the data file keeps it, in one line, and back.
std::u16string StoredSearches(const std::vector<std::u16string>& history);
std::vector<std::u16string> ParseSearches(std::u16string_view stored);

// What a search may start from: the selected text; "" when more is selected than anybody looks for.
std::u16string SelectedSearch(const TextView&, int charset);
std::u16string SelectedSearch(HtmlView&);

// The next place after the selection: in a text once around its end, selected and in view; in a
// page up to its end only. Nothing changes when there is none, or when a long search is given up.
// `charset` is the font's. False when there is none.
bool FindNext(TextView&, const FindState&, int charset);
bool FindNext(HtmlView&, const FindState&);
