// The file of the shown book is changed by another program.
#pragma once

struct MainForm;

// The file of the shown book is watched from now on.
void WatchBookFile(MainForm&);

// The system says that it may have changed. One that is another than what is shown, and has
// been left alone for a second, is shown again at the same words. One that may be half written is
// waited for.
void fsBook_Changed(MainForm&);
void toChange_Timer(MainForm&); // each second from then on, until nothing is left to be shown

// Called each second, for a file of which the system does not tell.
void CheckBookFile(MainForm&);
