// The window as a whole.
#pragma once

struct MainForm;

void LayOutForm(MainForm&); // places everything in the window
// "product [profile] - book", and the name of the text where it is read aloud.
void UpdateWindowTitle(MainForm&);
