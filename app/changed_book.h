// The file of the shown book is changed by another program.
#pragma once

struct MainForm;

// Called each second. The file of a text that is another one than what is shown, and has been left
// alone since the last call, is shown again as by Refresh. One that may be half written is waited
// for.
void WatchShownBook(MainForm&);
