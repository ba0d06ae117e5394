// The title of the main window.
#pragma once

struct MainForm;

// "product [profile] - path", with the book's own title for the path when that is wanted and can be
// shown; without a book the first part alone.
// The text view gets the title, else the file's name.
void UpdateWindowTitle(MainForm&);
