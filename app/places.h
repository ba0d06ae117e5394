// Going to a place of the book, and printing it.
#pragma once

struct MainForm;

void GoToPlace(MainForm&); // asks for it
void PrintBook(MainForm&);
