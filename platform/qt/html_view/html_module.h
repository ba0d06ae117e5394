// Finds and loads the module of the HTML view.
#pragma once

#include "platform/qt/html_view/html_plug_in.h"

// Whether the module is installed and its sandbox works on this system. Does not load it.
bool IsHtmlModuleAvailable();

// Null on failure, which is logged. The module is never unloaded.
MakeHtmlView* LoadHtmlModule();
