// What a record keeps of an HTML book's page.
#pragma once

#include "books/book_record.h"
#include "platform/html_view.h"

// The document's charset and its title, as one line of bounded length.
void StoreDocument(BookRecord&, const HtmlView&);

// Place and size, as the page has settled both, and charset.
void StorePagePlace(BookRecord&, const HtmlView&);
// The size asked for last, and charset: of a record that has no place in this page.
void StorePageSize(BookRecord&, const HtmlView&, int zoomStep);
