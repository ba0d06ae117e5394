// Printing the shown book.
#pragma once

struct MainForm;

void PrintBook(MainForm&);
