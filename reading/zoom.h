// The zoom of an HTML page, in steps from its normal size. The view zooms by keystrokes: the user's
// are counted, those that the program sends are not counted a second time.
//
// The step asked for last is in the menu at once; the page takes its time. A place means something
// only in the size that it was taken in, so the record gets what the view has settled, both
// together, and keeps the pair before until then.
#pragma once

#include "common/menu_model.h"
#include "reading/html_page.h"

// The step asked for last is kept in the tag of View > Font, as a decimal number.
int ZoomStep(const MenuItem& fontItem);
void SetZoomStep(MenuItem& fontItem, int);
int WithinZoomSteps(int step); // of an edited record

// Keystrokes for the page alone: larger for a positive number, smaller for a negative one.
void ZoomBy(HtmlPage&, HtmlView&, int steps);

// Before a page with a body is left: lets it settle, so that its size is not lost. Waits a bounded
// time, in which the window may be closed.
void SettleZoom(HtmlView&, const MenuItem& fontItem);

// Whether this key of the user has zoomed the page. It is counted whatever the program is doing
// just now, because the view zooms by itself.
bool CountZoomKey(HtmlPage&, MenuItem& fontItem, int keyCode, int shift);
