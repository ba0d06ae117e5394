// The zoom of an HTML page, in steps from its normal size. The view zooms by keystrokes: the user's
// are counted, those that the program sends are not counted a second time.
//
// The step asked for last is in the menu at once; the page takes its time. A place means something
// only in the size that it was taken in, so the record gets what the view has settled, both
// together, and keeps the pair before until then.
#pragma once

struct MainForm;

int ZoomStep(const MainForm&); // asked for last; in the tag of the Font item, a decimal number
void SetZoomStep(MainForm&, int);
int WithinZoomSteps(int step); // of an edited record

void ZoomBy(MainForm&, int steps);     // the page alone
void ZoomPage(MainForm&, bool larger); // one step, as a command does

// Before the page is left: lets it settle, so that its size is not lost. Waits a bounded time;
// false when the window was closed meanwhile.
bool SettleZoom(MainForm&);
void wbMain_Zoomed(MainForm&); // it has settled

// Whether this key of the user has zoomed the page. It is counted whatever the program is doing
// just now, because the view zooms by itself.
bool CountZoomKey(MainForm&, int keyCode, int shift);
