// The zoom of an HTML page, in steps from its normal size. The view zooms by keystrokes: the user's
// are counted, those that the program sends are not counted a second time.
#pragma once

struct MainForm;

int ZoomStep(const MainForm&); // kept in the tag of the Font item, as a decimal number
void SetZoomStep(MainForm&, int);

void ApplyZoomStep(MainForm&);         // to a page of normal size
void ZoomPage(MainForm&, bool larger); // one step, as a command does

// Whether this key of the user has zoomed the page. It is counted whatever the program is doing
// just now, because the view zooms by itself.
bool CountZoomKey(MainForm&, int keyCode, int shift);
