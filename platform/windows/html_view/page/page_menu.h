// The context menu of a page, with the engine's command ids (mshtmcid.h).
#pragma once

#include "platform/html_view.h"
#include "platform/windows/base/win32.h"

#include <optional>

std::optional<PageCommand> ToPageCommand(int number); // none for any other
int CommandId(PageCommand);

struct PageMenu {
    bool hasText = false, hasSelection = false;
    std::optional<PageEngine> engine; // of the page, where another one can be chosen
};

// Shows the menu at a screen position and returns the command chosen. Built in code: a menu
// resource would repeat the engine's ids, and be missing in the test programs.
std::optional<PageCommand> TrackPageMenu(HWND owner, POINT place, const PageMenu& items);
