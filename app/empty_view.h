// What the view shows while there is no book in it.
#pragma once

struct MainForm;

// How to open a book; and the welcome book, for somebody who has never opened one.
void UpdateEmptyView(MainForm&);
// What a click on it, or Enter, does.
void OpenWelcomeBook(MainForm&);
