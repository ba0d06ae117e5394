// Changing between the views that can show the page of a book.
#pragma once

struct MainForm;

// Shows the book in the other one, now and from now on; nothing where there is no other. The page
// is loaded again and goes to the words that are at its top.
void ChangePageEngine(MainForm&);
