// Finding and loading the module of the HTML view.
#pragma once

#include "platform/qt/html_view/engine/html_plug_in.h"

// Whether the module is installed and its engine can guard itself on this system. Loads nothing.
bool HtmlModuleCanLoad();

// Null when it cannot be loaded, which is reported on stderr. It is never unloaded.
MakeHtmlView* LoadHtmlModule();
