// Go To: a place of the shown book, by per cent or by heading.
#pragma once

struct MainForm;

void GoToPlace(MainForm&); // asks for it
