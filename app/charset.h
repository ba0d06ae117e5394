// Another script for the shown book.
#pragma once

struct MainForm;

// Reads the shown book again in the charset of the view's font, when it is plain text in a code
// page. Top line, caret and bookmarks stay on the same text. Nothing happens to a book in Unicode
// or rich text.
void ReadInCharset(MainForm&);
