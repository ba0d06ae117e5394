// What stands where in the main window.
#pragma once

#include "platform/html_view.h"
#include "platform/status_bar.h"
#include "platform/text_view.h"
#include "platform/window.h"

// The height that goes with the screen's resolution.
void FitStatusBar(StatusBar&, const Window&);

// Places status bar, panel and views; nothing while minimised. `htmlView` may be null.
void LayOutWindow(Window&, StatusBar&, TextView&, HtmlView* htmlView);
