// Events of the views and of the window around them.
#pragma once

#include "platform/html_view.h"

#include <string>
#include <vector>

struct MainForm;

void ToggleFullScreen(MainForm&);
void LeaveFullScreen(MainForm&);        // nothing while the window is one
void fwMain_Resize(MainForm&);          // moved, resized or changed state
void fwMain_Zoom(MainForm&, int steps); // Ctrl and the wheel; each step is one point

void rtMain_ContextMenu(MainForm&); // the commands that apply to the text under the pointer
void rtMain_FilesDropped(MainForm&, const std::vector<std::u16string>& paths);

void wbMain_DocumentComplete(MainForm&, const std::u16string& url);
void wbMain_Zoomed(MainForm&); // the size asked for last has settled
void wbMain_Gone(MainForm&);
void wbMain_Command(MainForm&, PageCommand); // of the view's own context menu
