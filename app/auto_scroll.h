// Starts, steers and ends the automatic scrolling.
#pragma once

struct MainForm;

void StartAutoScroll(MainForm&);
void EndAutoScroll(MainForm&);
// A pressed key: true when it was meant for the scrolling alone.
bool SteerAutoScroll(MainForm&, int keyCode, int shift);
// A released key: Ctrl+Shift+S starts it, unless its press has just ended it.
void ReleaseAutoScrollKey(MainForm&, int keyCode, int shift);
