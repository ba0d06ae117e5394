// What a record keeps of an HTML book's page.
#pragma once

#include "books/book_record.h"
#include "platform/html_view.h"

// The document's charset and its title, as one line of bounded length.
void StoreDocument(BookRecord&, const HtmlView&);

// Place and size, as the page has settled both, and charset. A place that is not exact yet leaves
// the one of the record.
void StorePagePlace(BookRecord&, const HtmlView&, const PageTop&);
// The size asked for last, and charset: of a record that has no place in this page.
void StorePageSize(BookRecord&, const HtmlView&, int zoomStep);
